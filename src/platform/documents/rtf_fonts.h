#pragma once
// The fonts of an RTF document: an entry of its font table, the families a run in it is drawn with, and
// the code page its 8-bit characters are written in.
#include <QFont>
#include <QString>
#include <QStringList>

#include <array>

namespace documents::rtf {

// 256 characters of a single-byte code page.
using CodePage = std::array<char16_t, 256>;

// Windows code page 1252.
const CodePage& codePage1252();
// A single-byte code page by its Windows number (10000 is Mac Roman); one Qt cannot decode reads as 1252.
const CodePage& codePage(int number);
// The Symbol font's own encoding: Greek letters, arrows, mathematical signs and the bullet at 0xB7.
const CodePage& symbolPage();
// Wingdings: the bytes word processors write for list bullets; the rest read as Latin-1.
const CodePage& wingdingsPage();

// The Windows code page of an \fcharset number; 0 for ANSI and default, which follow the document's own.
int charsetCodePage(int charset);

struct FontEntry {
    QString name;
    QFont::StyleHint family = QFont::AnyStyle;  // \froman, \fswiss, \fmodern, ...
    int charset = 0;
};

// The characters of `font`: its charset's code page, the Symbol or Wingdings encoding, or `documentPage`.
const CodePage& pageOf(const FontEntry& font, const CodePage& documentPage);

// Families to draw a run in `font` with, best first: the font itself, then a metric-compatible font that
// Debian ships (Liberation for the Times, Arial and Courier families) or one of its generic family. Empty
// for symbol fonts, whose characters are read as Unicode and drawn in the document's font.
QStringList familiesOf(const FontEntry& font);

}  // namespace documents::rtf
