#include "platform/documents/full_viewer.h"

#include "platform/documents/document_view.h"
#include "platform/documents/find_bar.h"
#include "platform/documents/view_tools.h"
#include "platform/documents/view_trail.h"
#include "platform/forms/window_registry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace documents {

namespace {
const QString kName = QStringLiteral("FullViewer");
std::vector<std::function<void(FullViewer*)>> madeHooks;
}  // namespace

FullViewer::FullViewer() : QWidget(nullptr, Qt::Window), view_(new DocumentView(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
    connect(view_, &DocumentView::linkActivated, this, &FullViewer::followLink);
    FindBar::attach(view_);
    attachTrail(this, view_, [this] { return linkFolder_; }, [this](const QByteArray& b, const QString& f) { open(b, f); });
    ViewTools::attach(view_);
    for (const auto& hook : madeHooks) hook(this);
}

void FullViewer::whenMade(std::function<void(FullViewer*)> hook) {
    if (FullViewer* viewer = existing()) hook(viewer);
    madeHooks.push_back(std::move(hook));
}

// The viewer is one of the program's windows: the window registry holds it, as it holds the others.
FullViewer* FullViewer::instance() {
    if (!forms::exists(kName)) forms::define(kName, [] { return new FullViewer(); });
    return forms::get<FullViewer>(kName);
}

FullViewer* FullViewer::existing() { return forms::exists(kName) ? forms::get<FullViewer>(kName) : nullptr; }

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
        linkFolder_ = QFileInfo(linked.fileName()).absolutePath();
        view_->setDocument(linked.readAll());
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
