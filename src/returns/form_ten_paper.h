#pragma once
// Form No. 10 on paper: the pages painted on a printer or into a PDF file, and the print preview
// from which the user prints it or saves it as PDF.
#include "platform/reports/page_preview.h"
#include "returns/form_ten_store.h"

class QPagedPaintDevice;
class QAction;

namespace returns {

// The line at the foot of every page: the form, the dealer and the month.
QString FormTenFooter(const FormTenMonth& month);

// "Form10-<TIN>-March-2026.pdf", the name a saved return is offered under.
QString FormTenPdfName(const FormTenMonth& month);
// Where the last PDF of a return was saved.
inline const QString kPdfFolderKey = QStringLiteral("formTenPdf");

// Paints every page of the month's form on A4; the device's page layout is set to A4 without margins,
// the form keeping its own. Returns the number of pages.
int PaintFormTen(const FormTenMonth& month, QPagedPaintDevice* device);

// The form as a PDF file, written under a temporary name and put in place whole: a file that cannot be
// written (a folder without leave, a full disk) raises error 75 naming it, and leaves no file behind.
int WriteFormTenPdf(const FormTenMonth& month, const QString& path);

// Print and Save as PDF, the same from the form's window and from its preview. The print dialog, then the
// pages on the printer chosen; the save dialog in the folder last saved to, under FormTenPdfName.
void PrintFormTen(const FormTenMonth& month, QWidget* over);
QString AskFormTenPdfPath(const FormTenMonth& month, QWidget* over);
// The PDF written to the path and its folder remembered; a box saying why when it cannot be.
bool SaveFormTenPdf(const FormTenMonth& month, const QString& path);

// The print preview: the pages as they print, with Print and Save as PDF.
class FormTenPreview : public reports::PagePreview {
    Q_OBJECT
public:
    explicit FormTenPreview(QWidget* parent = nullptr);
    void setMonth(const FormTenMonth& month);
    int pageCount() const;

    QAction* actPrint = nullptr;
    QAction* actSavePdf = nullptr;

    // What the buttons do after their dialogs: print on the printer as set up; save to the path, a
    // box saying why when it cannot.
    void printOn(QPrinter* printer);
    bool savePdf(const QString& path);

private:
    void paintPages(QPrinter* printer) override { printOn(printer); }

    FormTenMonth month_;
};

}  // namespace returns
