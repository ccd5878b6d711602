#pragma once
// The E-Filing window: for a month of the open book, the checks a return should pass before it is
// filed, the bills whose TIN the upload's lists change, and the lists written as XLSX and CSV into a
// folder the user picks. A finding opens the return window on its bill.
#include "returns/e_filing_lists.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace returns {

class EFilingWindow : public QWidget {
    Q_OBJECT
public:
    explicit EFilingWindow(QWidget* parent = nullptr);

    QComboBox* cboMonth = nullptr;
    QLabel* lblBills = nullptr;
    QListWidget* lstChecks = nullptr;
    QListWidget* lstChanged = nullptr;
    QLineEdit* txtFolder = nullptr;
    QPushButton* cmdFolder = nullptr;
    QPushButton* cmdWrite = nullptr;
    QPushButton* cmdClose = nullptr;
    QLabel* lblWritten = nullptr;

    void showMonth(const QString& month);
    const FilingMonth& month() const { return month_; }
    // Opens the return window on the bill of a finding or of a changed TIN.
    void openBill(QListWidgetItem* item);
    // Writes the lists into the folder of txtFolder; asks first when the checks found anything. True
    // when written; a file that cannot be written is named in a box and nothing is remembered.
    bool writeFiles();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // Reads the month again; when its bills are no longer those shown, shows them. True when they were not.
    bool showChangedBills();

    FilingMonth month_;
};

}  // namespace returns
