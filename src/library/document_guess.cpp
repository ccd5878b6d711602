#include "library/document_guess.h"


#include <QDate>
#include <QFileInfo>
#include <QRegularExpression>

namespace library {

namespace {

constexpr int kHead = 1500;   // where a document names itself

using Rx = QRegularExpression;

QString collapsed(const QString& line) { return line.simplified(); }

// Lines that head many documents of a department and name none of them.
bool letterhead(const QString& line) {
    static const Rx head(QStringLiteral(R"(^(government of|office of|department|commissionerate|no\.?$|proceedings of))"),
                         Rx::CaseInsensitiveOption);
    return head.match(line).hasMatch();
}

}  // namespace

QString guessDate(const QString& text) {
    static const Rx dated(
        QStringLiteral(R"((?:\bdated?\b|തീയതി)\W{0,4}(\d{1,2})(?:st|nd|rd|th)?[-./ ]{1,3}(\d{1,2}|[a-z]{3,9})[-./ ,]{1,3}(\d{4})\b)"),
        Rx::CaseInsensitiveOption);
    static const QStringList months = {"jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"};
    const QRegularExpressionMatch m = dated.match(text.left(kHead));
    if (!m.hasMatch()) return {};
    bool numeric = false;
    int month = m.captured(2).toInt(&numeric);
    if (!numeric) month = int(months.indexOf(m.captured(2).left(3).toLower())) + 1;
    const QDate date(m.captured(3).toInt(), month, m.captured(1).toInt());
    return date.isValid() ? date.toString(Qt::ISODate) : QString();
}

QString guessNumber(const QString& text) {
    const QString head = text.left(kHead);
    static const Rx sro(QStringLiteral(R"(\bS\.?\s?R\.?\s?O\.?\s*(?:No\.?\s*)?(\d+/\d{2,4}))"), Rx::CaseInsensitiveOption);
    static const Rx numbered(QStringLiteral(R"(\bNo\.?\s*:?\s*((?:[A-Z]{1,6}[-.\s]?)?\d+(?:/[A-Z0-9.]+)*/\d{2,4})\b)"),
                             Rx::CaseInsensitiveOption);
    static const Rx reported(QStringLiteral(R"([\[(]\d{4}[\])]\s*\d+\s+[A-Z]{2,5}\s+\d+)"));
    static const Rx named(QStringLiteral(R"((?:\bcircular|\bnotification|\border|സർക്കുലർ|വിജ്ഞാപനം)\s+(\d+/\d{4})\b)"), Rx::CaseInsensitiveOption);
    // The earliest of them: a circular that cites a notification names its own number first.
    qsizetype first = head.size();
    QString number;
    for (const auto& [rx, whole, prefix] : {std::tuple{&sro, false, "SRO "}, {&numbered, false, ""},
                                            {&reported, true, ""}, {&named, false, ""}}) {
        const QRegularExpressionMatch m = rx->match(head);
        if (m.hasMatch() && m.capturedStart() < first) {
            first = m.capturedStart();
            number = QString::fromLatin1(prefix) + m.captured(whole ? 0 : 1);
        }
    }
    return number;
}

DocumentGuess guessDocument(const QString& text, const QString& fileName) {
    DocumentGuess guess;
    const QString head = text.left(kHead);

    static const std::pair<const char*, const char*> marks[] = {
        {R"(\bcircular\b|സർക്കുലർ)", "Circular"},
        {R"(\bnotifications?\b|\bS\.?\s?R\.?\s?O\.|വിജ്ഞാപനം)", "Notification"},
        {R"(\bjudge?ments?\b|\bhigh court\b|\btribunal\b|\bversus\b|\sv(?:s)?\.\s)", "Judgement"},
        {R"(^\s*(?:the\s+)?\w+\s+schedule\b|\bschedule\s+[A-Z0-9]+\b)", "Schedule"},
        {R"(^\s*form\b)", "Form"},
        {R"(\brules\b|\brule\s+\d)", "Rules"},
        {R"(\bact\b)", "Act"},
    };
    qsizetype first = head.size();
    guess.kind = kOtherKind;
    for (const auto& [pattern, kind] : marks) {
        const Rx rx(QString::fromUtf8(pattern), Rx::CaseInsensitiveOption | Rx::MultilineOption);
        const QRegularExpressionMatch m = rx.match(head);
        if (m.hasMatch() && m.capturedStart() < first) {
            first = m.capturedStart();
            guess.kind = QString::fromLatin1(kind);
        }
    }

    // A heading that is only a kind ("NOTIFICATION") takes the line below it, which numbers it.
    static const Rx bareKind(QStringLiteral(R"(^\W*(circular|notification|judge?ment|order)\W*$)"), Rx::CaseInsensitiveOption);
    const QStringList lines = head.split(u'\n');
    int looked = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = collapsed(lines[i]);
        if (line.count(Rx(QStringLiteral("\\w"))) < 3) continue;
        if (++looked <= 5 && letterhead(line)) continue;
        guess.title = line;
        if (bareKind.match(line).hasMatch())
            for (qsizetype next = i + 1; next < lines.size(); ++next)
                if (const QString below = collapsed(lines[next]); !below.isEmpty()) {
                    guess.title += u' ' + below;
                    break;
                }
        if (guess.title.size() > 160) guess.title = guess.title.left(159) + QStringLiteral("…");
        break;
    }
    // A judgement is known by its parties, below the court's name.
    static const Rx parties(QStringLiteral(R"(^.{3,}\s(?:v|vs|versus)\.?\s.{3,}$)"), Rx::CaseInsensitiveOption);
    if (guess.kind == QLatin1String("Judgement"))
        for (const QString& line : lines)
            if (parties.match(collapsed(line)).hasMatch()) {
                guess.title = collapsed(line).left(160);
                break;
            }
    if (guess.title.isEmpty()) guess.title = QFileInfo(fileName).completeBaseName();
    guess.number = guessNumber(head);
    guess.date = guessDate(head);
    return guess;
}

}  // namespace library
