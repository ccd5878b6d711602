#include "platform/documents/document_kind.h"

#include <QStringDecoder>

namespace documents {

namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; }

// True when `tag` stands at `pos` in any case and is followed by an end of tag, a blank or the end:
// "<header" is not "<head".
bool tagAt(const QByteArray& bytes, qsizetype pos, QByteArrayView tag) {
    if (bytes.size() - pos < tag.size()) return false;
    if (QByteArrayView(bytes).sliced(pos, tag.size()).compare(tag, Qt::CaseInsensitive) != 0) return false;
    const qsizetype after = pos + tag.size();
    return after == bytes.size() || isBlank(bytes[after]) || bytes[after] == '>' || bytes[after] == '/';
}

}  // namespace

Kind kindOf(const QByteArray& bytes) {
    if (bytes.isEmpty()) return Kind::None;
    if (bytes.startsWith("{\\rtf")) return Kind::Rtf;
    if (bytes.startsWith("%PDF-")) return Kind::Pdf;
    qsizetype pos = bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0;
    while (pos < bytes.size() && isBlank(bytes[pos])) ++pos;
    for (const char* tag : {"<!doctype html", "<html", "<head", "<body"})
        if (tagAt(bytes, pos, tag)) return Kind::Html;
    return Kind::Text;
}

QString decodeText(const QByteArray& bytes) {
    // Notepad's "Unicode" files carry a UTF-16 byte-order mark.
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) {
        QStringDecoder utf16(bytes.startsWith("\xFF\xFE") ? QStringConverter::Utf16LE : QStringConverter::Utf16BE,
                             QStringConverter::Flag::Stateless);
        QString text = utf16(QByteArrayView(bytes).sliced(2));
        if (!utf16.hasError()) return text;
    }
    // Stateless, so that a sequence cut at the end counts as an error rather than waiting for more bytes.
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QString text = utf8(bytes);
    if (!utf8.hasError()) return text;
    return QString::fromLatin1(bytes);
}

QString decodeHtml(const QByteArray& bytes) {
    const auto declared = QStringConverter::encodingForHtml(bytes);
    if (declared && *declared != QStringConverter::Utf8) {
        QStringDecoder decoder(*declared, QStringConverter::Flag::Stateless);
        QString text = decoder(bytes);
        if (!decoder.hasError()) return text;
    }
    return decodeText(bytes);
}

}  // namespace documents
