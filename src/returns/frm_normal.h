#pragma once
// frmNormal, "Form No. 52": the monthly return window. Purchases are keyed into fg1 and sales into fg2,
// each through its floating cell editor (txtGrid1, txtGrid2); under each grid the labels show what the
// bills come to per rate of tax, and the text box beside them the grand total.
// The handlers come in twins, purchase side first; where the twins differ the code says so.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QGroupBox>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace forms {
class FlexGrid;
class ListBox;
}
namespace reports {
class CrystalReport;
}
namespace store {
class Recordset;
}

namespace returns {

struct StoreWords;

// The source of the error that saving raises for a bill date that is no day; its text is for the user.
inline const QString kBillDateSource = QStringLiteral("Bill date");

class frmNormal : public QWidget {
    Q_OBJECT
public:
    explicit frmNormal(QWidget* parent = nullptr);

    // ---- controls -----------------------------------------------------------------------------------
    forms::ListBox* List4 = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* lblCustomerName = nullptr;
    QLabel* Label46 = nullptr;
    QLineEdit* txtPlace = nullptr;
    QLabel* Label47 = nullptr;
    QLineEdit* txtDate = nullptr;
    QLabel* Label2 = nullptr;
    QLineEdit* txtRPTo = nullptr;
    forms::FlexGrid* fg1 = nullptr;
    QLineEdit* txtGrid1 = nullptr;
    forms::ListBox* List2 = nullptr;
    QLineEdit* txtTotal = nullptr;
    QPushButton* cmdPrint1 = nullptr;
    QLabel* Label1 = nullptr;
    QLineEdit* txtMonth = nullptr;
    forms::FlexGrid* fg2 = nullptr;
    QLineEdit* txtGrid2 = nullptr;
    forms::ListBox* List3 = nullptr;
    QLineEdit* txtTotal2 = nullptr;
    QPushButton* Command2 = nullptr;
    QGroupBox* Frame1 = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdExport = nullptr;
    QPushButton* cmdClose = nullptr;
    QPushButton* cmdDelete = nullptr;

    // Purchase totals: band captions, column headers, and Amount/Tax/Cess per band.
    QLabel *Label5 = nullptr, *Label6 = nullptr, *Label7 = nullptr, *Label8 = nullptr, *Label42 = nullptr;
    QLabel *Label60 = nullptr, *Label9 = nullptr, *Label11 = nullptr, *Label59 = nullptr;
    QLabel *Label64 = nullptr, *Label41 = nullptr, *Label40 = nullptr, *Label63 = nullptr;
    QLabel *Label12 = nullptr, *Label13 = nullptr, *Label14 = nullptr, *Label15 = nullptr, *Label10 = nullptr;
    QLabel *Label16 = nullptr, *Label17 = nullptr, *Label18 = nullptr, *Label19 = nullptr, *Label34 = nullptr;
    QLabel *Label58 = nullptr, *Label57 = nullptr, *Label56 = nullptr, *Label62 = nullptr, *Label61 = nullptr;

    // Sales totals, likewise, with the CST band.
    QLabel *Label33 = nullptr, *Label32 = nullptr, *Label31 = nullptr, *Label30 = nullptr, *Label43 = nullptr,
           *Label37 = nullptr;
    QLabel *Label65 = nullptr, *Label29 = nullptr, *Label28 = nullptr, *Label51 = nullptr;
    QLabel *Label66 = nullptr, *Label39 = nullptr, *Label38 = nullptr, *Label55 = nullptr;
    QLabel *Label23 = nullptr, *Label22 = nullptr, *Label21 = nullptr, *Label20 = nullptr, *Label35 = nullptr,
           *Label45 = nullptr;
    QLabel *Label27 = nullptr, *Label26 = nullptr, *Label25 = nullptr, *Label24 = nullptr, *Label36 = nullptr,
           *Label44 = nullptr;
    QLabel *Label50 = nullptr, *Label49 = nullptr, *Label48 = nullptr, *Label54 = nullptr, *Label53 = nullptr,
           *Label52 = nullptr;

    // ---- grid set-up and the cursor's walk ----------------------------------------------------------
    void procSetGrid();
    void procSetGrid2();
    void procMoveTextBox();
    void procMoveTextBox2();
    void procMoveColumn1(forms::FlexGrid* grid);
    void procNewGridCreateRow(forms::FlexGrid* grid);
    void procGridCreateRow();
    void procCreateGridRow();
    void fnDeleteRow(std::int16_t& row);
    void fnDeleteRow2(std::int16_t row);
    void procClear1();

    void fg1_EnterCell();
    void fg1_LeaveCell();
    void fg2_EnterCell();
    void fg2_LeaveCell();

    // Key codes as the old platform numbered them: KeyPress gets character codes (13 Enter, 25 Ctrl+Y,
    // 4 Ctrl+D), KeyDown key codes (33 Page Up ... 40 Down).
    void txtGrid1_KeyPress(int KeyAscii);
    void txtGrid1_KeyDown(int KeyCode, int Shift);
    void txtGrid1_GotFocus();
    void txtGrid2_KeyPress(int KeyAscii);
    void txtGrid2_KeyDown(int KeyCode, int Shift);
    void txtGrid2_GotFocus();
    void List2_KeyPress(int KeyAscii);
    void List3_KeyPress(int KeyAscii);

    // ---- rate-wise totals ---------------------------------------------------------------------------
    void procTotalCal1();
    void procTotalCal2();

    // ---- routines kept with no caller (frm_normal_unwired.cpp) -------------------------------------------
    // None is on any path of the window; wiring one would change what the user sees.
    void procTotalCal();
    void procGridEdit(forms::FlexGrid* grid, QLineEdit* box, int KeyAscii);
    void procMoveColumn();
    void procReadSales();
    void procGridCreateRow2();

    // The three fillings of the purchase rate list, padding and all, and the one of the sales list.
    enum class RateList { AtLoad, LocalPurchase, InterStatePurchase };
    void fillList2(RateList filling);
    void fillList3();

    // ---- the month's bills in the store -------------------------------------------------------------
    // A month's rows are replaced whole: the writers delete the month and add every grid row back,
    // dropping blank rows from the grid as they go; the readers rebuild a grid in date order.
    bool RecordExists = false;
    bool ReturnRowExists = false;
    void procRecExists(const QString& tableName);
    bool fnRecordExistsNormal(const QString& tableName);
    void procNewRecExists(const QString& tableName);
    void procWritePurchase();
    void procWritePurchaseInterState();
    void procWriteSales();
    void procReadPurchase();
    void procReadPurchaseInterState();
    void procReadSales_1();
    // The month's one row of tblCommon, from the rate-wise labels.
    void procWriteCommon();

    // ---- the staging tables the registers print from --------------------------------------------------
    // Key rows of the three summaries; the summaries from tblCommon; the bills from the grids.
    void procLoadKey();
    void procLoadRptPurchaseC();
    void procLoadRptPurchaseInterStateC();
    void procLoadRptSalesC();
    void procLoadRptPurchase();
    void procRptPurchaseInterState();
    void procLoadRptSales();

    // ---- posting the labels' figures to the return pages -----------------------------------------------
    using PageBoxes = std::vector<std::pair<QString, QString>>;     // box column, text to store
    void procExportPurchaseLocal();
    void procExportSalesLocal();
    void procExportPurchaseInterState();
    void procExportSales();

    // ---- the pick lists -----------------------------------------------------------------------------
    forms::ListBox* List1 = nullptr;
    void txtRPTo_GotFocus();
    void txtRPTo_Change();
    void List1_KeyDown(int KeyCode, int Shift);
    void List1_KeyUp(int KeyCode, int Shift);
    void List1_KeyPress(int KeyAscii);
    void List1_DblClick();
    void List1_LostFocus();
    void List4_Click();

    // ---- the window and its buttons -----------------------------------------------------------------
    // Show() is the language's Show: Form_Load on first showing (and after Close), then Form_Activate.
    void Show();
    void Form_Load();
    void Form_Activate();
    void cmdAdd_Click();
    void cmdAdd_KeyPress(int KeyAscii);
    void cmdDelete_Click();
    void cmdDelete_KeyPress(int KeyAscii);
    void cmdClose_Click();
    void cmdClose_KeyPress(int KeyAscii);
    void cmdExport_Click();
    void cmdExport_KeyPress(int KeyAscii);
    void cmdPrint1_Click();
    void Command2_Click();
    reports::CrystalReport* CrystalReport1 = nullptr;
    // Close without showing the chooser: what the chooser's Cancel does to this window.
    void Unload();

    // ---- the book the window works on (return_window_book.cpp) ------------------------------------------
    // Under the dealer's name, the book's TIN and year; the title names all three.
    QLabel* lblBook = nullptr;
    // The title, the book's line and the place the return is signed at, from the book open now.
    void showBook();
    // The dealer's name, the title and the book's line again, after the register changed them (a dealer
    // named or edited) while the window is open; the place of the month stays as it is.
    void ShowDealer();
    // After a load whose reads another program's lock passed over: one box naming the book.
    void sayLockMet();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // One side of the window, purchases or sales: the twins' handlers are one routine given the side.
    struct Side {
        forms::FlexGrid* grid;
        QLineEdit* box;
        forms::ListBox* list;
        void (frmNormal::*totals)();
    };
    Side purchases() { return {fg1, txtGrid1, List2, &frmNormal::procTotalCal1}; }
    Side sales() { return {fg2, txtGrid2, List3, &frmNormal::procTotalCal2}; }

    // Layout (frm_normal.cpp).
    void buildTotals();
    void buildFlows();
    void tapEvents(QWidget* target, std::function<bool(QEvent*)> handler);

    // The grids, their editors and keys (frm_normal_walk.cpp).
    void setGrid(forms::FlexGrid* grid);
    void stepCursor(forms::FlexGrid* grid);
    void moveTextBox(forms::FlexGrid* grid, QLineEdit* box);
    void enterCell(const Side& side);
    void leaveCell(const Side& side);
    void keyDown(forms::FlexGrid* grid, QLineEdit* box, int KeyCode);
    void editorKeyPress(const Side& side, int KeyAscii, const QString& dateFormatLine);
    void rateChosen(const Side& side);
    bool editorKey(QLineEdit* box, QKeyEvent* key);
    void openRateList(forms::FlexGrid* grid, forms::ListBox* list);
    void deleteRow(forms::FlexGrid* grid, QLineEdit* box, int row);
    static QString twoDecimals(double x);
    static void writeRowTotal(forms::FlexGrid* grid);

    // The month's bills in the store (frm_normal_store.cpp).
    enum class BillKind { Local, InterState, Sales };
    void writeBills(BillKind kind);
    void storeGridRows(store::Recordset& rs, bool sales, bool withPlace, bool dateAsText);
    void readBills(BillKind kind);
    void readRows(const Side& side, void (frmNormal::*makeRow)(), const std::function<void(int row)>& readCells);
    bool recordExists(const QString& tableName);
    QString monthFilter(const QString& table) const;

    // The registers' staging and the return pages (report_staging.cpp, export_pages.cpp).
    void stageBills(BillKind kind);
    enum class Summary { Purchase, InterState, Sales };
    void stageSummary(Summary which);
    void exportPage(const QString& table, const PageBoxes& updateBoxes, const PageBoxes& newRowBoxes);
    void exportMonth();
    void printRegister(const QString& templateFile);

    // The buttons (frm_normal_flows.cpp) and the one way their store work runs (frm_normal_work.cpp):
    // the questions first, then the work in one transaction; a failure rolls it back, puts back what
    // the screen showed and says in one box what went wrong. storeStep_ names the step for that box.
    void commitMonth(bool enableList4, bool markFirstRows);
    void addMonth(bool byEnter);
    void deleteMonth(bool byEnter);
    bool runStoreWork(const StoreWords& words, const std::function<bool()>& ask, const std::function<void()>& work);
    void storeStep(const QString& step, const std::function<void()>& work);
    // A box of the work, shown when the work has let the file go (at once outside any work).
    void afterStoreWork(std::function<void()> box);

    bool loaded_ = false;
    bool lockMet_ = false;   // a read of the load met another program's lock, and went on past it
    QString storeStep_;
    bool storeWorking_ = false;
    std::vector<std::function<void()>> afterStoreWork_;
};

}  // namespace returns
