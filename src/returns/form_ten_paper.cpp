#include "returns/form_ten_paper.h"

#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"
#include "returns/form_ten_layout.h"
#include "returns/remembered_folders.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPainter>
#include <QPrintPreviewWidget>
#include <QToolBar>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QSaveFile>

namespace returns {

QString FormTenFooter(const FormTenMonth& month) {
    QStringList parts{QStringLiteral("Form No. 10")};
    const QString name = month.values.fixed.value("dpName").section(u'\n', 0, 0);
    if (!name.isEmpty()) parts << name;
    if (!month.values.fixed.value("dpTIN").isEmpty()) parts << QStringLiteral("TIN ") + month.values.fixed.value("dpTIN");
    parts << month.month + QLatin1Char(' ') + QString::number(month.year);
    return parts.join(QStringLiteral("  -  "));
}

QString FormTenPdfName(const FormTenMonth& month) {
    const QString tin = month.values.fixed.value("dpTIN");
    return QStringLiteral("Form10-") + (tin.isEmpty() ? QString() : tin + QLatin1Char('-')) + month.month + QLatin1Char('-') +
           QString::number(month.year) + QStringLiteral(".pdf");
}

int PaintFormTen(const FormTenMonth& month, QPagedPaintDevice* device) {
    device->setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    if (auto* printer = dynamic_cast<QPrinter*>(device)) printer->setFullPage(true);
    const std::vector<FormPage> pages = LayFormTen(month.values);
    QPainter painter(device);
    PagePaint how;
    how.pxPerMm = device->logicalDpiX() / 25.4;
    how.footer = FormTenFooter(month);
    for (size_t n = 0; n < pages.size(); ++n) {
        if (n > 0) device->newPage();
        PaintFormPage(painter, pages[n], month.values, how, int(n) + 1, int(pages.size()));
    }
    painter.end();
    return int(pages.size());
}

int WriteFormTenPdf(const FormTenMonth& month, const QString& path) {
    const auto refused = [&](const QString& why) {
        return basic::RuntimeError(75, QStringLiteral("The PDF file ") + QDir::toNativeSeparators(path) +
                                           QStringLiteral(" cannot be written: ") + why);
    };
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) throw refused(file.errorString());
    int pages = 0;
    {
        QPdfWriter writer(&file);
        writer.setResolution(300);
        writer.setTitle(QStringLiteral("Form No. 10, ") + month.month + QLatin1Char(' ') + QString::number(month.year));
        writer.setCreator(QStringLiteral("Vorlan"));
        pages = PaintFormTen(month, &writer);
    }
    if (!file.commit()) throw refused(file.errorString());
    return pages;
}

void PrintFormTen(const FormTenMonth& month, QWidget* over) {
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, over);
    if (dialog.exec() == QDialog::Accepted) PaintFormTen(month, &printer);
}

QString AskFormTenPdfPath(const FormTenMonth& month, QWidget* over) {
    return QFileDialog::getSaveFileName(over, QStringLiteral("Save the return as PDF"),
                                        RememberedFolder(kPdfFolderKey) + QLatin1Char('/') + FormTenPdfName(month),
                                        QStringLiteral("PDF files (*.pdf)"));
}

bool SaveFormTenPdf(const FormTenMonth& month, const QString& path) {
    const basic::RuntimeError e = basic::resume([&] { WriteFormTenPdf(month, path); });
    if (e.number() != 0) {
        forms::MsgBox(e.description(), forms::vbExclamation, QStringLiteral("Not saved"));
        return false;
    }
    RememberFolder(kPdfFolderKey, QFileInfo(path).absolutePath());
    return true;
}

FormTenPreview::FormTenPreview(QWidget* parent) : PagePreview(QStringLiteral("Form No. 10"), parent) {
    actPrint = toolBar->addAction(QStringLiteral("&Print..."), this, [this] { PrintFormTen(month_, this); });
    actPrint->setShortcut(QKeySequence::Print);
    actSavePdf = toolBar->addAction(QStringLiteral("Save as P&DF..."), this, [this] {
        const QString path = AskFormTenPdfPath(month_, this);
        if (!path.isEmpty()) savePdf(path);
    });
    toolBar->addSeparator();
    addZoomActions(false);
    toolBar->addSeparator();
    addCloseAction(QStringLiteral("&Close"))->setShortcut(Qt::Key_Escape);
}

void FormTenPreview::setMonth(const FormTenMonth& month) {
    month_ = month;
    setWindowTitle(QStringLiteral("Form No. 10 - ") + month.month + QLatin1Char(' ') + QString::number(month.year));
    view->updatePreview();
    view->fitToWidth();
    showTop();
}

int FormTenPreview::pageCount() const { return view->pageCount(); }

void FormTenPreview::printOn(QPrinter* printer) { PaintFormTen(month_, printer); }

bool FormTenPreview::savePdf(const QString& path) { return SaveFormTenPdf(month_, path); }

}  // namespace returns
