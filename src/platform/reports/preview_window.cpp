#include "platform/reports/preview_window.h"

#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"
#include "platform/reports/register_painter.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QToolBar>

namespace reports {

PreviewWindow::PreviewWindow(QWidget* parent) : PagePreview(QStringLiteral("Register"), parent) {
    actPrint = toolBar->addAction(QStringLiteral("Print..."), this, [this] {
        QPrinter printer(QPrinter::HighResolution);
        printer.setPageLayout(template_.pageLayout());
        QPrintDialog dialog(&printer, this);
        if (dialog.exec() == QDialog::Accepted) printOn(&printer);
    });
    actSavePdf = toolBar->addAction(QStringLiteral("Save as PDF..."), this, [this] {
        const QString name = QFileInfo(template_.file).completeBaseName() + QStringLiteral(".pdf");
        const QString path = QFileDialog::getSaveFileName(this, QStringLiteral("Save the register as PDF"), name,
                                                          QStringLiteral("PDF files (*.pdf)"));
        if (!path.isEmpty()) savePdf(path);
    });
    toolBar->addSeparator();
    toolBar->addAction(QStringLiteral("First"), view, [this] { showTop(); });
    toolBar->addAction(QStringLiteral("Previous"), view, [this] { view->setCurrentPage(view->currentPage() - 1); });
    toolBar->addAction(QStringLiteral("Next"), view, [this] { view->setCurrentPage(view->currentPage() + 1); });
    toolBar->addAction(QStringLiteral("Last"), view, [this] { view->setCurrentPage(view->pageCount()); });
    lblPage = new QLabel(this);
    lblPage->setContentsMargins(8, 0, 8, 0);
    toolBar->addWidget(lblPage);
    toolBar->addSeparator();
    addZoomActions(true);
    toolBar->addSeparator();
    addCloseAction(QStringLiteral("Close"));
    connect(view, &QPrintPreviewWidget::previewChanged, this, [this] { showPageNumber(); });
}

void PreviewWindow::paintPages(QPrinter* printer) { pages_ = paintRegister(template_, data_, printer); }

void PreviewWindow::setRegister(const ReportTemplate& t, const ReportData& d) {
    template_ = t;
    data_ = d;
    printer_.setPageLayout(t.pageLayout());
    setWindowTitle(t.title.isEmpty() ? QFileInfo(t.file).fileName() : fillFields(t.title, d.heading));
    view->updatePreview();
    view->fitToWidth();
    showTop();
}

void PreviewWindow::showTop() {
    PagePreview::showTop();
    showPageNumber();
}

void PreviewWindow::printOn(QPrinter* printer) { paintRegister(template_, data_, printer); }

void PreviewWindow::savePdf(const QString& path) {
    const basic::RuntimeError e = basic::resume([&] { writePdf(template_, data_, path); });
    if (e.number() != 0) forms::MsgBox(e.description(), forms::vbExclamation, QStringLiteral("Not saved"));
}

void PreviewWindow::showPageNumber() {
    lblPage->setText(QStringLiteral("Page %1 of %2").arg(view->currentPage()).arg(view->pageCount()));
}

}  // namespace reports
