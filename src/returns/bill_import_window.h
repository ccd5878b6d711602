#pragma once
// The preview of a spreadsheet before its bills go into a grid: the sheet's first rows, the header row
// found and what each column is read as (changeable), the sheet to read, the grid to fill, and every
// row that cannot be read with why. OK gives the bills; the grid is not touched here.
#include "platform/sheets/sheet_reader.h"
#include "returns/bill_import.h"

#include <QDialog>
#include <functional>
#include <vector>

class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSpinBox;
class QTableWidget;

namespace returns {

// A grid the bills can go into: its name for the user, its rate list, and the bills it holds now.
struct ImportTarget {
    QString name;              // "Purchases (Local Purchase)", "Sales"
    QStringList rateEntries;
    int lastBill = 0;          // the bills go in after this row
};

class BillImportWindow : public QDialog {
    Q_OBJECT
public:
    // readSheet reads a sheet of the file by name; it throws basic::RuntimeError as ReadSheet does.
    using SheetReading = std::function<sheets::SheetContents(const QString& sheetName)>;
    BillImportWindow(const QString& fileName, sheets::SheetContents first, SheetReading readSheet,
                     std::vector<ImportTarget> targets, int target, QWidget* parent = nullptr);

    int target() const;
    const BillImport& reading() const { return reading_; }
    const std::vector<BillField>& fields() const { return fields_; }
    int headerRow() const { return headerRow_; }

    // Rows shown in the table; the reading itself covers the whole sheet.
    static constexpr int kPreviewRows = 200;

    QComboBox* sheetBox = nullptr;
    QSpinBox* headerBox = nullptr;     // the header's row as the sheet numbers it; 0: no header
    QComboBox* targetBox = nullptr;
    QTableWidget* table = nullptr;     // row 0: a list of fields per column; then the sheet's rows
    std::vector<QComboBox*> fieldBoxes;
    QListWidget* notesList = nullptr;
    QLabel* summary = nullptr;
    QPushButton* okButton = nullptr;

    void chooseSheet(const QString& name);
    void chooseHeaderRow(int row);                 // -1: none
    void chooseField(int column, BillField field);

private:
    void showSheet();
    void reread();
    void paintRows();

    QString fileName_;
    SheetReading readSheet_;
    sheets::SheetContents sheet_;
    std::vector<ImportTarget> targets_;
    int headerRow_ = -1;
    std::vector<BillField> fields_;
    BillImport reading_;
    bool filling_ = false;
};

}  // namespace returns
