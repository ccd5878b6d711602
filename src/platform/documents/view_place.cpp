#include "platform/documents/view_place.h"

#include "platform/documents/document_view.h"

#include <QPdfView>
#include <QScrollBar>
#include <QTextBrowser>

namespace documents {

QString placeOf(const DocumentView* view) {
    if (view->kind() == Kind::None) return {};
    if (view->kind() == Kind::Pdf) {
        const QScrollBar* bar = view->pdfView()->verticalScrollBar();
        if (bar->value() <= 0 || bar->maximum() <= 0) return {};
        return QStringLiteral("p%1").arg(double(bar->value()) / bar->maximum(), 0, 'f', 5);
    }
    const QTextBrowser* text = view->textBrowser();
    if (text->verticalScrollBar()->value() <= 0) return {};
    return QStringLiteral("t%1").arg(text->cursorForPosition(QPoint(2, 2)).position());
}

void goToPlace(DocumentView* view, const QString& place) {
    bool read = false;
    if (view->kind() == Kind::Pdf && place.startsWith(u'p')) {
        const double share = place.mid(1).toDouble(&read);
        QScrollBar* bar = view->pdfView()->verticalScrollBar();
        if (read) bar->setValue(int(share * bar->maximum() + 0.5));
    } else if (view->kind() != Kind::Pdf && view->kind() != Kind::None && place.startsWith(u't')) {
        const int position = place.mid(1).toInt(&read);
        QTextBrowser* text = view->textBrowser();
        if (!read) return;
        QTextCursor at(text->document());
        at.setPosition(std::clamp(position, 0, text->document()->characterCount() - 1));
        QScrollBar* bar = text->verticalScrollBar();
        bar->setValue(bar->value() + text->cursorRect(at).top());
    }
}

}  // namespace documents
