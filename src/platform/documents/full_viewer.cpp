#include "platform/documents/full_viewer.h"

#include "platform/documents/document_view.h"
#include "platform/documents/find_bar.h"
#include "platform/documents/reader_tools.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
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
    connect(view_, &DocumentView::linkActivated, this, &FullViewer::followLink);
    FindBar::attach(view_);
    ReaderTools::attach(view_);
}

FullViewer* FullViewer::instance() {
    if (!theViewer) theViewer = new FullViewer();
    return theViewer;
}

FullViewer* FullViewer::existing() { return theViewer; }

void FullViewer::open(const QByteArray& bytes, const QString& linkFolder) {
    linkFolder_ = linkFolder;
    view_->setDocument(bytes);
    showMaximized();
    raise();
    activateWindow();
}

void FullViewer::followLink(const QString& target) {
    const qsizetype hash = target.indexOf(QLatin1Char('#'));
    const QString file = target.left(hash), bookmark = hash < 0 ? QString() : target.mid(hash + 1);
    if (!file.isEmpty()) {
        // Only plain file names and relative paths: addresses of the web and absolute paths stay unopened.
        if (linkFolder_.isEmpty() || file.contains(QLatin1Char(':')) || QDir::isAbsolutePath(file)) return;
        QFile linked(QDir(linkFolder_).filePath(file));
        if (!linked.open(QIODevice::ReadOnly)) return;
        view_->setDocument(linked.readAll());
        linkFolder_ = QFileInfo(linked.fileName()).absolutePath();
    }
    if (!bookmark.isEmpty()) view_->scrollToAnchor(bookmark);
}

void FullViewer::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    QWidget::keyPressEvent(event);
}

void openInFull(const QByteArray& bytes, const QString& linkFolder) {
    FullViewer::instance()->open(bytes, linkFolder);
}

}  // namespace documents
