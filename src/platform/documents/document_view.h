#pragma once
// A read-only view of one stored document of any kind: RTF, HTML and plain text in a text browser,
// PDF in a page view. Links are reported, never followed, so the caller decides what a link opens.
#include "platform/documents/document_kind.h"

#include <QByteArray>
#include <QWidget>

class QBuffer;
class QPdfDocument;
class QPdfView;
class QStackedLayout;
class QTextBrowser;

namespace documents {

class DocumentView : public QWidget {
    Q_OBJECT
public:
    explicit DocumentView(QWidget* parent = nullptr);

    // Shows `bytes` as the kind its first bytes tell; empty bytes show nothing.
    void setDocument(const QByteArray& bytes);
    void clear();

    const QByteArray& document() const { return bytes_; }
    Kind kind() const { return kind_; }
    // What a reader sees: the text of an RTF, HTML or text document; "" for PDF or nothing.
    QString plainText() const;
    // Pages of a PDF document; 0 for any other kind or a PDF that cannot be read.
    int pageCount() const;

    // Brings the place named by an RTF bookmark or an HTML anchor into view; a link "#a10" names "a10".
    void scrollToAnchor(const QString& name);

    QTextBrowser* textBrowser() const { return text_; }
    QPdfView* pdfView() const { return pdf_; }

signals:
    // A link of an HTML or RTF document was clicked; `target` is its address as written.
    void linkActivated(const QString& target);
    // The shown document is about to give way to another or to nothing; it is still on the screen.
    void leaving();
    // A new document has been shown.
    void shown();

private:
    QStackedLayout* stack_;
    QWidget* blank_;
    QTextBrowser* text_;
    QPdfView* pdf_;
    QPdfDocument* pdfDocument_;
    QBuffer* pdfBytes_;
    QByteArray bytes_;
    Kind kind_ = Kind::None;
};

}  // namespace documents
