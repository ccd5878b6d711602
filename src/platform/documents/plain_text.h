#pragma once
// The text a reader sees in a stored document, for indexing its words: RTF through our reader, HTML as
// the view lays it out, plain text decoded, PDF from the text layer of its pages (none for a scanned one).
#include <QByteArray>
#include <QString>

namespace documents {

struct PlainText {
    QString text;
    QString fault;   // why the bytes cannot be read as a document; empty when they can
};

// RTF and HTML need a QGuiApplication, as any QTextDocument does.
PlainText plainTextOf(const QByteArray& bytes);

}  // namespace documents
