#include "platform/forms/fonts.h"

#include <QApplication>
#include <QFontMetrics>

namespace forms {

void LoadFonts() {
    QFont bold = QApplication::font();
    bold.setBold(true);
    for (const QFont& font : {QApplication::font(), bold}) QFontMetrics(font).horizontalAdvance(QStringLiteral("Vorlan"));
}

}  // namespace forms
