#pragma once
// Spreadsheets on the return window: bills pasted into a grid (Ctrl+V in a cell, Ctrl+Z takes the
// whole paste back), a file's bills imported after a preview (Ctrl+I), the month and the year exported.
// It rides on the window from outside: a button with a menu at the free end of the button frame, and
// key filters on the two cell editors; the window's own controls, texts and keys stay as they are.
// Nothing here reaches the store but the year's summary, which only reads it: bills go into the grids,
// and Add stores them as typed bills are stored.
#include "returns/bill_export.h"
#include "returns/bill_grid_fill.h"
#include "returns/bill_import_window.h"

#include <QObject>
#include <QPointer>
#include <memory>

class QLineEdit;
class QMimeData;
class QPushButton;

namespace forms {
class FlexGrid;
class ListBox;
}

namespace returns {

class frmNormal;

class BillSheets : public QObject {
    Q_OBJECT
public:
    explicit BillSheets(frmNormal* window);

    QPushButton* button = nullptr;     // "&Spreadsheet", its menu holds every entry below

    // The grid the user works in now: the one whose cell editor had the focus last (purchases at first).
    bool salesSide() const { return sales_; }

    // Ctrl+V: the copied rows into the current grid from its current cell. False when the clipboard holds
    // at most one cell, which the cell editor pastes as text.
    bool paste(const QMimeData* copied);
    // Ctrl+Z: the grid's last paste or import taken back. False when there is none.
    bool undo();

    // Ctrl+I: a file chosen, previewed, and on OK its bills after the last bill of the chosen grid.
    void importBills();
    // The preview of a file, or none after a box that says why the file cannot be read.
    std::unique_ptr<BillImportWindow> preview(const QString& path);
    void fill(const BillImportWindow& preview);

    // The month: the bills of the purchase kind shown, the sales and the summary (xlsx, ods, or a csv
    // file each); the year's summary of the book as one xlsx sheet. Each ends with a box saying so.
    void exportMonth();
    void exportMonth(const QString& path);
    void exportYear();
    void exportYear(const QString& path);

    // The rate-wise figures as the window shows them, for the summary.
    RegisterFigures purchaseFigures() const;
    RegisterFigures salesFigures() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Side {
        forms::FlexGrid* grid;
        QLineEdit* box;
        forms::ListBox* list;
        bool sales;
    };
    Side side(bool sales) const;
    Side current() const { return side(sales_); }
    QStringList rateEntries(const Side& s) const;
    void showGridChange(const Side& s);
    QString purchaseKind() const;
    QString monthText() const;
    QString chooseFile(const QString& title, const QString& name, const QString& filters, bool save);

    frmNormal* w_;
    bool sales_ = false;
    FillHistory history_;
};

}  // namespace returns
