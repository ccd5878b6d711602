#include "returns/bill_sheets.h"

#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/layout.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "returns/bill_paste.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"
#include "returns/remembered_folders.h"
#include "returns/return_book.h"
#include "returns/year_summary.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGroupBox>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>

namespace returns {

namespace {

const QString kPasteTitle = QStringLiteral("Paste bills");
const QString kImportTitle = QStringLiteral("Import bills");
const QString kExportTitle = QStringLiteral("Export");
// The most reasons one box lists; the rest are counted.
constexpr int kReasonsShown = 12;

QString reasonsText(const QStringList& reasons) {
    QStringList shown = reasons.mid(0, kReasonsShown);
    if (reasons.size() > kReasonsShown) shown << QStringLiteral("... and %1 more.").arg(reasons.size() - kReasonsShown);
    return shown.join(QLatin1Char('\n'));
}

// Where the last spreadsheet was opened or saved.
const QString kSheetsFolderKey = QStringLiteral("sheets");

double figure(const QLabel* label) { return basic::Val(label->text()); }
double figure(const QLineEdit* box) { return basic::Val(box->text()); }

// A name typed without a suffix is written as a workbook.
QString withSuffix(const QString& path) {
    return QFileInfo(path).suffix().isEmpty() ? path + QStringLiteral(".xlsx") : path;
}

}  // namespace

BillSheets::BillSheets(frmNormal* window) : QObject(window), w_(window) {
    button = new QPushButton(QStringLiteral("&Spreadsheet"), window->Frame1);
    forms::place(button, 13080, 240, 1815, 375);
    // Out of the Tab order, so that the window's keys walk its controls as they always have.
    button->setFocusPolicy(Qt::NoFocus);
    auto* menu = new QMenu(button);
    menu->addAction(QStringLiteral("&Paste bills into the grid\tCtrl+V"), this, [this] {
        if (!paste(QApplication::clipboard()->mimeData()))
            forms::MsgBox(QStringLiteral("The clipboard holds no rows of a sheet. Copy the bills in the spreadsheet first."),
                          forms::vbInformation, kPasteTitle);
    });
    menu->addAction(QStringLiteral("&Take the last paste back\tCtrl+Z"), this, [this] {
        if (!undo()) forms::MsgBox(QStringLiteral("No paste or import to take back."), forms::vbInformation, kPasteTitle);
    });
    menu->addSeparator();
    menu->addAction(QStringLiteral("&Import bills from a file...\tCtrl+I"), this, [this] { importBills(); });
    menu->addSeparator();
    menu->addAction(QStringLiteral("&Export the month..."), this, [this] { exportMonth(); });
    menu->addAction(QStringLiteral("Export the &year's summary..."), this, [this] { exportYear(); });
    button->setMenu(menu);
    auto* ctrlI = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_I), window);
    connect(ctrlI, &QShortcut::activated, this, [this] { importBills(); });
    window->txtGrid1->installEventFilter(this);
    window->txtGrid2->installEventFilter(this);
}

BillSheets::Side BillSheets::side(bool sales) const {
    return sales ? Side{w_->fg2, w_->txtGrid2, w_->List3, true} : Side{w_->fg1, w_->txtGrid1, w_->List2, false};
}

QStringList BillSheets::rateEntries(const Side& s) const {
    QStringList entries;
    for (int i = 0; i < s.list->ListCount(); ++i) entries << s.list->List(i);
    return entries;
}

// After cells changed under the cell editor, the current cell is entered anew: the editor takes the
// cell's text (else leaving the cell would write its old text back), its place and the focus, and the
// rate-wise totals are worked out, as after typing.
void BillSheets::showGridChange(const Side& s) { s.sales ? w_->fg2_EnterCell() : w_->fg1_EnterCell(); }

bool BillSheets::eventFilter(QObject* watched, QEvent* event) {
    const bool sales = watched == w_->txtGrid2;
    if (event->type() == QEvent::FocusIn) sales_ = sales;
    if (event->type() != QEvent::KeyPress) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Paste)) {
        sales_ = sales;
        return paste(QApplication::clipboard()->mimeData());
    }
    if (key->matches(QKeySequence::Undo)) {
        // The editor's own undo first, for what was typed into the cell.
        if (side(sales).box->isUndoAvailable()) return false;
        sales_ = sales;
        return undo();
    }
    return false;
}

bool BillSheets::paste(const QMimeData* copied) {
    const std::vector<QStringList> rows = ClipboardRows(copied);
    if (rows.empty() || (rows.size() == 1 && rows.front().size() <= 1)) return false;
    const Side s = current();
    const PastePlan plan = PlanPaste(rows, s.grid->Row(), s.grid->Col(), rateEntries(s));
    if (!plan.refusals.isEmpty()) {
        forms::MsgBox(QStringLiteral("Nothing was pasted; these cells cannot be read:\n\n") + reasonsText(plan.refusals),
                      forms::vbExclamation, kPasteTitle);
        return true;
    }
    if (plan.lines.empty()) return true;
    GridCells before = GridCells::of(s.grid);
    FillBillRows(s.grid, plan.firstRow, plan.lines);
    history_.record(s.grid, std::move(before));
    showGridChange(s);
    return true;
}

bool BillSheets::undo() {
    const Side s = current();
    switch (history_.undo(s.grid)) {
    case FillHistory::Undo::Nothing: return false;
    case FillHistory::Undo::Changed:
        forms::MsgBox(QStringLiteral("The bills were changed after the paste, so it cannot be taken back as a whole. "
                                     "Ctrl+Y takes out the row of the current cell."),
                      forms::vbInformation, kPasteTitle);
        return true;
    case FillHistory::Undo::Done: break;
    }
    showGridChange(s);
    return true;
}

QString BillSheets::purchaseKind() const {
    return w_->List4->ListIndex() <= 0 ? QStringLiteral("Local Purchase") : QStringLiteral("Inter State Purchase");
}

QString BillSheets::chooseFile(const QString& title, const QString& name, const QString& filters, bool save) {
    const QString folder = RememberedFolder(kSheetsFolderKey);
    const QString path = save ? QFileDialog::getSaveFileName(w_, title, QDir(folder).filePath(name), filters)
                              : QFileDialog::getOpenFileName(w_, title, folder, filters);
    if (!path.isEmpty()) RememberFolder(kSheetsFolderKey, QFileInfo(path).absolutePath());
    return path;
}

void BillSheets::importBills() {
    const QString path = chooseFile(kImportTitle, QString(),
                                    QStringLiteral("Spreadsheets (*.xlsx *.ods *.csv *.txt);;All files (*)"), false);
    if (path.isEmpty()) return;
    std::unique_ptr<BillImportWindow> window = preview(path);
    if (window && window->exec() == QDialog::Accepted) fill(*window);
}

std::unique_ptr<BillImportWindow> BillSheets::preview(const QString& path) {
    auto read = [path](const QString& sheet) { return sheets::ReadSheet(path, sheet, kImportRowLimit); };
    sheets::SheetContents first;
    const basic::RuntimeError e = basic::resume([&] { first = read(QString()); });
    if (e.number() != 0) {
        forms::MsgBox(e.description(), forms::vbExclamation, kImportTitle);
        return nullptr;
    }
    std::vector<ImportTarget> targets{
        {QStringLiteral("the purchases (%1)").arg(purchaseKind()), rateEntries(side(false)), LastBillRow(w_->fg1)},
        {QStringLiteral("the sales"), rateEntries(side(true)), LastBillRow(w_->fg2)}};
    return std::make_unique<BillImportWindow>(path, std::move(first), read, std::move(targets), sales_ ? 1 : 0, w_);
}

void BillSheets::fill(const BillImportWindow& preview) {
    if (!preview.reading().blocker.isEmpty()) return;
    const Side s = side(preview.target() == 1);
    GridCells before = GridCells::of(s.grid);
    FillBillRows(s.grid, LastBillRow(s.grid) + 1, preview.reading().bills);
    history_.record(s.grid, std::move(before));
    sales_ = s.sales;
    showGridChange(s);
}

// ---- export --------------------------------------------------------------------------------------------

RegisterFigures BillSheets::purchaseFigures() const {
    const frmNormal& w = *w_;
    return {QStringLiteral("Purchases (%1)").arg(purchaseKind()),
            {{"0", figure(w.Label12), figure(w.Label16), figure(w.Label58)},
             {"1", figure(w.Label13), figure(w.Label17), figure(w.Label57)},
             {"4", figure(w.Label14), figure(w.Label18), figure(w.Label56)},
             {"12.5", figure(w.Label15), figure(w.Label19), figure(w.Label62)},
             {"20", figure(w.Label10), figure(w.Label34), figure(w.Label61)}},
            figure(w.txtTotal)};
}

RegisterFigures BillSheets::salesFigures() const {
    const frmNormal& w = *w_;
    return {QStringLiteral("Sales"),
            {{"0", figure(w.Label23), figure(w.Label27), figure(w.Label50)},
             {"1", figure(w.Label22), figure(w.Label26), figure(w.Label49)},
             {"4", figure(w.Label21), figure(w.Label25), figure(w.Label48)},
             {"12.5", figure(w.Label20), figure(w.Label24), figure(w.Label54)},
             {"CST", figure(w.Label35), figure(w.Label36), figure(w.Label53)},
             {"20", figure(w.Label45), figure(w.Label44), figure(w.Label52)}},
            figure(w.txtTotal2)};
}

// "March 2026": the month of the window in the calendar year the open book gives it.
QString BillSheets::monthText() const {
    const QString month = w_->txtRPTo->text().trimmed();
    const QDate named = QDate::fromString(month + QStringLiteral(" 1 2000"), QStringLiteral("MMMM d yyyy"));
    if (!named.isValid()) return month;
    return QStringLiteral("%1 %2").arg(named.toString(QStringLiteral("MMMM"))).arg(CurrentBook().calendarYear(named.month()));
}

void BillSheets::exportMonth() {
    const QString name = monthText().toLower().replace(u' ', u'-') + QStringLiteral(".xlsx");
    const QString path = chooseFile(kExportTitle, name,
                                    QStringLiteral("Excel workbook (*.xlsx);;OpenDocument spreadsheet (*.ods);;"
                                                   "CSV, a file for each sheet (*.csv)"),
                                    true);
    if (!path.isEmpty()) exportMonth(path);
}

void BillSheets::exportMonth(const QString& chosen) {
    const QString path = withSuffix(chosen);
    const ReturnBook& book = CurrentBook();
    const QString month = monthText();
    const bool local = w_->List4->ListIndex() <= 0;
    const QString purchases = local ? QStringLiteral("Local purchases") : QStringLiteral("Inter-state purchases");
    auto heading = [&](const QString& title) { return SheetHeading{title, book.dealerName, book.tin, month}; };
    const std::vector<sheets::Sheet> sheets{
        BillsSheet(purchases, heading(QStringLiteral("Purchase register (%1)").arg(purchaseKind())), w_->fg1),
        BillsSheet(QStringLiteral("Sales"), heading(QStringLiteral("Sales register")), w_->fg2),
        SummarySheet(QStringLiteral("Summary"), heading(QStringLiteral("Rate-wise summary")), {purchaseFigures(), salesFigures()})};
    QStringList written;
    const basic::RuntimeError e = basic::resume([&] { written = WriteSheets(path, sheets); });
    if (e.number() != 0) {
        forms::MsgBox(e.description(), forms::vbExclamation, kExportTitle);
        return;
    }
    forms::MsgBox(QStringLiteral("The bills of %1 are written to:\n").arg(month) + written.join(QLatin1Char('\n')),
                  forms::vbInformation, kExportTitle);
}

void BillSheets::exportYear() {
    const QString name = QStringLiteral("year-%1.xlsx").arg(CurrentBook().yearText());
    const QString path = chooseFile(kExportTitle, name, QStringLiteral("Excel workbook (*.xlsx)"), true);
    if (!path.isEmpty()) exportYear(path);
}

void BillSheets::exportYear(const QString& chosen) {
    const QString path = withSuffix(chosen);
    const ReturnBook& book = CurrentBook();
    const basic::RuntimeError e = basic::resume([&] {
        const std::vector<RegisterYear> year = ReadYear();
        sheets::WriteXlsx(path, {YearSummarySheet(book, book.tin, year)});
    });
    if (e.number() != 0) {
        forms::MsgBox(e.description(), forms::vbExclamation, kExportTitle);
        return;
    }
    forms::MsgBox(QStringLiteral("The summary of the year %1 is written to:\n%2").arg(book.yearText(), path),
                  forms::vbInformation, kExportTitle);
}

}  // namespace returns
