#include "platform/documents/document_view.h"

#include "platform/documents/rtf_reader.h"

#include <QBuffer>
#include <QPdfDocument>
#include <QPdfView>
#include <QPointer>
#include <QStackedLayout>
#include <QTextBrowser>
#include <QTextDocument>

namespace documents {

DocumentView::DocumentView(QWidget* parent)
    : QWidget(parent),
      stack_(new QStackedLayout(this)),
      blank_(new QWidget(this)),
      text_(new QTextBrowser(this)),
      pdf_(new QPdfView(this)),
      pdfDocument_(new QPdfDocument(this)),
      pdfBytes_(new QBuffer(this)) {
    stack_->setContentsMargins(0, 0, 0, 0);
    stack_->addWidget(blank_);
    stack_->addWidget(text_);
    stack_->addWidget(pdf_);
    text_->setReadOnly(true);
    text_->setUndoRedoEnabled(false);
    text_->setOpenLinks(false);
    text_->setOpenExternalLinks(false);
    connect(text_, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& url) { emit linkActivated(url.toString()); });
    pdf_->setDocument(pdfDocument_);
    pdf_->setPageMode(QPdfView::PageMode::MultiPage);
    pdf_->setZoomMode(QPdfView::ZoomMode::FitToWidth);
    stack_->setCurrentWidget(blank_);
}

void DocumentView::setDocument(const QByteArray& bytes) {
    clear();
    bytes_ = bytes;
    kind_ = kindOf(bytes);
    switch (kind_) {
    case Kind::None:
        return;
    case Kind::Rtf: {
        // Read into a document that no editor lays out yet, then hand it over whole: a layout that
        // follows every insertion costs many times the reading.
        QPointer<QTextDocument> shown = text_->document();   // the editor deletes its own first one
        auto* fresh = new QTextDocument(text_);
        fresh->setDefaultFont(shown->defaultFont());
        fresh->setDocumentMargin(shown->documentMargin());
        readRtf(bytes, *fresh);
        text_->setDocument(fresh);
        if (shown && shown->parent() == text_) delete shown;
        break;
    }
    case Kind::Html:
        text_->setHtml(decodeHtml(bytes));
        break;
    case Kind::Text:
        text_->setPlainText(decodeText(bytes));
        break;
    case Kind::Pdf:
        pdfBytes_->setData(bytes);
        pdfBytes_->open(QIODevice::ReadOnly);
        pdfDocument_->load(pdfBytes_);
        stack_->setCurrentWidget(pdf_);
        emit shown();
        return;
    }
    text_->moveCursor(QTextCursor::Start);
    stack_->setCurrentWidget(text_);
    emit shown();
}

void DocumentView::clear() {
    if (!bytes_.isEmpty()) emit leaving();
    stack_->setCurrentWidget(blank_);
    text_->clear();
    pdfDocument_->close();
    pdfBytes_->close();
    pdfBytes_->setData(QByteArray());
    bytes_.clear();
    kind_ = Kind::None;
}

QString DocumentView::plainText() const {
    if (kind_ == Kind::None || kind_ == Kind::Pdf) return {};
    return text_->document()->toPlainText();
}

void DocumentView::scrollToAnchor(const QString& name) { text_->scrollToAnchor(name); }

int DocumentView::pageCount() const {
    return kind_ == Kind::Pdf ? pdfDocument_->pageCount() : 0;
}

}  // namespace documents
