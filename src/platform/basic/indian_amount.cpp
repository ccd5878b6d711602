#include "platform/basic/indian_amount.h"

#include <QRegularExpression>
#include <cmath>

namespace basic {

QString IndianAmount(double value) {
    // Whole paise first, so that the rounding is that of the decimal figure and not of its binary image.
    const double paise = std::round(std::abs(value) * 100.0 + 1e-7);
    const long long whole = static_cast<long long>(paise) / 100;
    const int fraction = static_cast<int>(static_cast<long long>(paise) % 100);
    QString digits = QString::number(whole);
    QString grouped = digits.right(3);
    for (qsizetype end = digits.size() - 3; end > 0; end -= 2)
        grouped.prepend(digits.mid(std::max<qsizetype>(0, end - 2), std::min<qsizetype>(2, end)) + QLatin1Char(','));
    const QString sign = (value < 0 && paise > 0) ? QStringLiteral("-") : QString();
    return sign + grouped + QLatin1Char('.') + QStringLiteral("%1").arg(fraction, 2, 10, QLatin1Char('0'));
}

std::optional<double> ParseIndianAmount(const QString& text) {
    static const QRegularExpression shape(QStringLiteral(
        "^(?:\\d+|\\d{1,2}(?:,\\d{2})*,\\d{3}|\\d{1,3}(?:,\\d{3})+)(?:\\.\\d{0,2})?$|^\\.\\d{1,2}$"));
    const QString t = text.trimmed();
    if (!shape.match(t).hasMatch()) return std::nullopt;
    bool ok = false;
    const double value = QString(t).remove(QLatin1Char(',')).toDouble(&ok);
    if (!ok || !std::isfinite(value)) return std::nullopt;
    return value;
}

}  // namespace basic
