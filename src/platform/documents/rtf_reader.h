#pragma once
// Our own reader of Rich Text Format into a QTextDocument: text, paragraphs, bold, italic, underline,
// fonts with their character sets, font sizes, alignment and indents, special characters, hyperlinks,
// tables with their cell borders, and PNG and JPEG pictures (a metafile stands as a box of its size, or as
// its PNG alternative). Objects, colours, styles, headers and footers are passed over.
//
// It reads in one pass without recursion: group depth is capped, numbers are clamped, \bin counts are
// bounded by the input, so truncated or hostile bytes end in a partial document, never a crash or a hang.
// Time and memory grow with the size of the input only: long tables and paragraphs are built in pieces
// that the view can lay out as it shows them.
#include <QByteArray>

class QTextDocument;

namespace documents {

// Deepest group whose content is read; anything nested deeper is passed over.
inline constexpr int kRtfMaxDepth = 256;

// Replaces the content of `document` by what `rtf` holds.
void readRtf(const QByteArray& rtf, QTextDocument& document);

}  // namespace documents
