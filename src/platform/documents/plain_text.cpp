#include "platform/documents/plain_text.h"

#include "platform/documents/document_kind.h"
#include "platform/documents/rtf_reader.h"

#include <QBuffer>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QTextDocument>

namespace documents {

namespace {

PlainText pdfText(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QPdfDocument pdf;
    pdf.load(&buffer);
    if (pdf.status() != QPdfDocument::Status::Ready)
        return {{}, QStringLiteral("a PDF that cannot be opened (damaged, or locked with a password)")};
    QStringList pages;
    for (int page = 0; page < pdf.pageCount(); ++page) pages << pdf.getAllText(page).text();
    return {pages.join(u'\n'), {}};
}

}  // namespace

PlainText plainTextOf(const QByteArray& bytes) {
    switch (kindOf(bytes)) {
    case Kind::None:
        return {};
    case Kind::Pdf:
        return pdfText(bytes);
    case Kind::Rtf: {
        QTextDocument document;
        readRtf(bytes, document);
        return {document.toPlainText(), {}};
    }
    case Kind::Html: {
        QTextDocument document;
        document.setHtml(decodeHtml(bytes));
        return {document.toPlainText(), {}};
    }
    case Kind::Text:
        // A picture or a word processor's file dropped among the documents reads as "text" by its first
        // bytes; a zero byte outside UTF-16 gives it away.
        if (!bytes.startsWith("\xFF\xFE") && !bytes.startsWith("\xFE\xFF") && bytes.contains('\0'))
            return {{}, QStringLiteral("neither RTF, HTML, PDF nor text")};
        return {decodeText(bytes), {}};
    }
    return {};
}

}  // namespace documents
