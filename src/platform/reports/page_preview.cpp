#include "platform/reports/page_preview.h"

#include <QAction>
#include <QGraphicsView>
#include <QPrintPreviewWidget>
#include <QScrollBar>
#include <QToolBar>
#include <QVBoxLayout>

namespace reports {

PagePreview::PagePreview(const QString& title, QWidget* parent)
    : QWidget(parent, Qt::Window), printer_(QPrinter::HighResolution) {
    setWindowTitle(title);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    toolBar = new QToolBar(this);
    view = new QPrintPreviewWidget(&printer_, this);
    layout->addWidget(toolBar);
    layout->addWidget(view, 1);
    connect(view, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) { paintPages(printer); });
    resize(900, 1000);
}

void PagePreview::showTop() {
    view->setCurrentPage(1);
    // Going to a page centres it; a page taller than the window is then shown from its top.
    if (auto* pages = view->findChild<QGraphicsView*>()) pages->verticalScrollBar()->setValue(pages->verticalScrollBar()->minimum());
}

void PagePreview::addZoomActions(bool wholePage) {
    toolBar->addAction(QStringLiteral("Zoom in"), view, [this] { view->zoomIn(); });
    toolBar->addAction(QStringLiteral("Zoom out"), view, [this] { view->zoomOut(); });
    toolBar->addAction(QStringLiteral("Page width"), view, [this] { view->fitToWidth(); });
    if (wholePage) toolBar->addAction(QStringLiteral("Whole page"), view, [this] { view->fitInView(); });
}

QAction* PagePreview::addCloseAction(const QString& text) {
    return toolBar->addAction(text, this, [this] { close(); });
}

}  // namespace reports
