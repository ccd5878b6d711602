#pragma once
// What a stored document is, told by its first bytes, and how its text is decoded.
#include <QByteArray>
#include <QString>

namespace documents {

enum class Kind { None, Rtf, Html, Pdf, Text };

// Empty bytes are no document; "{\rtf" is RTF, "%PDF-" is PDF; a leading <!DOCTYPE html, <html, <head or
// <body (after blanks and a byte-order mark, any case) is HTML; anything else is plain text.
Kind kindOf(const QByteArray& bytes);

// Text bytes as UTF-8 (or UTF-16 with its byte-order mark); bytes that are not valid UTF-8 are Latin-1.
QString decodeText(const QByteArray& bytes);

// HTML bytes decoded by their own charset declaration, else as decodeText.
QString decodeHtml(const QByteArray& bytes);

}  // namespace documents
