#include "platform/documents/full_viewer.h"

#include "platform/documents/document_view.h"

#include <QKeyEvent>
#include <QPointer>
#include <QVBoxLayout>

namespace documents {

namespace {
// Guarded, not owned: a top-level widget has no parent and must not outlive the application object.
QPointer<FullViewer> theViewer;
}  // namespace

FullViewer::FullViewer() : QWidget(nullptr, Qt::Window), view_(new DocumentView(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
}

FullViewer* FullViewer::instance() {
    if (!theViewer) theViewer = new FullViewer();
    return theViewer;
}

FullViewer* FullViewer::existing() { return theViewer; }

void FullViewer::open(const QByteArray& bytes) {
    view_->setDocument(bytes);
    showMaximized();
    raise();
    activateWindow();
}

void FullViewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    QWidget::keyPressEvent(event);
}

void openInFull(const QByteArray& bytes) { FullViewer::instance()->open(bytes); }

}  // namespace documents
