#pragma once
// The report window: a register in print preview, with buttons to print it, save it as PDF, zoom and
// leaf through the pages. One window serves every register the report control runs.
#include "platform/reports/page_preview.h"
#include "platform/reports/report_data.h"
#include "platform/reports/report_template.h"

class QAction;
class QLabel;

namespace reports {

class PreviewWindow : public PagePreview {
    Q_OBJECT
public:
    explicit PreviewWindow(QWidget* parent = nullptr);

    // Shows the register, rendered anew; the window keeps both for printing and saving.
    void setRegister(const ReportTemplate& t, const ReportData& d);
    int pageCount() const { return pages_; }

    QAction* actPrint = nullptr;
    QAction* actSavePdf = nullptr;
    QLabel* lblPage = nullptr;

    // What the two buttons do after their dialogs: print on the printer as set up, save to the path.
    void printOn(QPrinter* printer);
    void savePdf(const QString& path);
    // The first page, from its top, and its number.
    void showTop();

private:
    void paintPages(QPrinter* printer) override;
    void showPageNumber();

    ReportTemplate template_;
    ReportData data_;
    int pages_ = 0;
};

}  // namespace reports
