#pragma once
// The report window: a register in print preview, with buttons to print it, save it as PDF, zoom and
// leaf through the pages. One window serves every register the report control runs.
#include "platform/reports/report_data.h"
#include "platform/reports/report_template.h"

#include <QPrinter>
#include <QWidget>
#include <memory>

class QPrintPreviewWidget;
class QToolBar;
class QAction;
class QLabel;

namespace reports {

class PreviewWindow : public QWidget {
    Q_OBJECT
public:
    explicit PreviewWindow(QWidget* parent = nullptr);

    // Shows the register, rendered anew; the window keeps both for printing and saving.
    void setRegister(const ReportTemplate& t, const ReportData& d);
    int pageCount() const { return pages_; }

    QPrintPreviewWidget* view = nullptr;
    QToolBar* toolBar = nullptr;
    QAction* actPrint = nullptr;
    QAction* actSavePdf = nullptr;
    QLabel* lblPage = nullptr;

    // What the two buttons do after their dialogs: print on the printer as set up, save to the path.
    void printOn(QPrinter* printer);
    void savePdf(const QString& path);
    // The first page, from its top.
    void showTop();

private:
    void showPageNumber();

    QPrinter printer_;
    ReportTemplate template_;
    ReportData data_;
    int pages_ = 0;
};

}  // namespace reports
