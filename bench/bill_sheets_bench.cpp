// Spreadsheets on the return window, at sizes beyond any month: 1,000 copied rows pasted into the
// purchase grid to the totals on the screen (under 200 ms), beside the same texts put straight into the
// grid's cells; the preview of a 10,000-bill XLSX (under a second), beside the sheet reader alone; the
// month of 10,000 bills exported as XLSX, ODS and CSV (each under a second), beside a plain write of
// the file's bytes.
#include "plain_write.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/sheets/sheet_reader.h"
#include "qt_bench_main.h"
#include "returns/bill_export.h"
#include "returns/bill_paste.h"
#include "returns/bill_sheets.h"
#include "returns/frm_normal.h"

#include <QApplication>
#include <QFile>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>


namespace {

constexpr int kPasted = 1000;
constexpr int kBills = 10000;

QTemporaryDir& folder() {
    static QTemporaryDir dir;
    return dir;
}

returns::frmNormal& window() {
    static returns::frmNormal w;
    static bool shown = false;
    if (!shown) {
        w.show();
        w.fg1->setRow(1);
        w.fg1->setCol(1);
        shown = true;
    }
    return w;
}

returns::BillSheets& sheetsOf(returns::frmNormal& w) { return *w.findChild<returns::BillSheets*>(); }

// A bill as a spreadsheet copies it: Indian grouping, a percentage, a date with the month's name.
QString copiedRow(int r) {
    static const char* const rates[] = {"0", "1", "4", "12.50%", "20 %"};
    return QStringLiteral("%1 Mar 2026\tKerala Agencies and Traders %2\t3201%3\tB-%4\t%5\t1,%6,250.00\t%7.50\t1.25")
        .arg(1 + r % 31)
        .arg(r % 700)
        .arg(r % 9000000, 7, 10, QChar(u'0'))
        .arg(r)
        .arg(QLatin1String(rates[r % 5]))
        .arg(10 + r % 89)
        .arg(r % 997);
}

const QMimeData& copied() {
    static QMimeData data;
    if (!data.hasText()) {
        QStringList lines;
        for (int r = 0; r < kPasted; ++r) lines << copiedRow(r);
        data.setText(lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n"));
    }
    return data;
}

void emptyGrid(returns::frmNormal& w) {
    w.fg1->Clear();
    w.procSetGrid();
    w.txtGrid1->setText(QString());
}

void BM_Paste1000Rows(benchmark::State& state) {
    auto& w = window();
    const QMimeData& data = copied();
    for (auto _ : state) {
        state.PauseTiming();
        emptyGrid(w);
        state.ResumeTiming();
        sheetsOf(w).paste(&data);
        w.repaint();
    }
    if (w.fg1->Rows() != kPasted + 1) state.SkipWithError("the paste did not fill the grid");
}
BENCHMARK(BM_Paste1000Rows)->Unit(benchmark::kMillisecond);

// The floor: the copied cells split and put into the grid as they stand, with no reading and no totals.
void BM_PutTextsStraightIntoTheGrid(benchmark::State& state) {
    auto& w = window();
    const QMimeData& data = copied();
    for (auto _ : state) {
        state.PauseTiming();
        emptyGrid(w);
        state.ResumeTiming();
        const QStringList lines = data.text().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
        w.fg1->setRows(int(lines.size()) + 1);
        for (int r = 0; r < lines.size(); ++r) {
            const QStringList cells = lines[r].split(u'\t');
            for (int c = 0; c < cells.size(); ++c) w.fg1->setTextMatrix(r + 1, c + 1, cells[c]);
        }
        w.repaint();
    }
}
BENCHMARK(BM_PutTextsStraightIntoTheGrid)->Unit(benchmark::kMillisecond);

// The month's grid of 10,000 bills, and its sheets.
void fillBills(returns::frmNormal& w) {
    static bool filled = false;
    if (filled) return;
    QStringList rates;
    for (int i = 0; i < w.List2->ListCount(); ++i) rates << w.List2->List(i);
    const returns::PastePlan plan = returns::PlanPaste(returns::ClipboardRows(&copied()), 1, 1, rates);
    emptyGrid(w);
    for (int block = 0; block < kBills / kPasted; ++block)
        returns::FillBillRows(w.fg1, returns::LastBillRow(w.fg1) + 1, plan.lines);
    w.procTotalCal1();
    filled = true;
}

void exportMonth(benchmark::State& state, const char* suffix) {
    auto& w = window();
    fillBills(w);
    const QString path = folder().filePath(QStringLiteral("march.") + QLatin1String(suffix));
    forms::MsgBoxRecorder quiet;
    for (auto _ : state) sheetsOf(w).exportMonth(path);
    if (quiet.boxes().empty() || quiet.boxes().back().style != forms::vbInformation)
        state.SkipWithError("the export failed");
}
void BM_ExportMonthXlsx(benchmark::State& state) { exportMonth(state, "xlsx"); }
void BM_ExportMonthOds(benchmark::State& state) { exportMonth(state, "ods"); }
void BM_ExportMonthCsv(benchmark::State& state) { exportMonth(state, "csv"); }
BENCHMARK(BM_ExportMonthXlsx)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportMonthOds)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportMonthCsv)->Unit(benchmark::kMillisecond);

// The floor: the bytes of the exported workbook written and flushed, as the writers do.
void BM_PlainWriteOfTheWorkbook(benchmark::State& state) {
    auto& w = window();
    fillBills(w);
    const QString path = folder().filePath(QStringLiteral("march-floor.xlsx"));
    forms::MsgBoxRecorder quiet;
    sheetsOf(w).exportMonth(path);
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const QByteArray plain = QFile::encodeName(folder().filePath(QStringLiteral("plain.xlsx")));
    for (auto _ : state) writeStraight(plain, bytes);
    state.counters["bytes"] = double(bytes.size());
}
BENCHMARK(BM_PlainWriteOfTheWorkbook)->Unit(benchmark::kMillisecond);

QString tenThousandBills() {
    static const QString path = [] {
        auto& w = window();
        fillBills(w);
        const QString p = folder().filePath(QStringLiteral("bills.xlsx"));
        forms::MsgBoxRecorder quiet;
        sheetsOf(w).exportMonth(p);
        return p;
    }();
    return path;
}

// The file read, every row read as a bill, and the preview window made with its first rows.
void BM_PreviewXlsx10000Bills(benchmark::State& state) {
    auto& w = window();
    const QString path = tenThousandBills();
    for (auto _ : state) {
        auto preview = sheetsOf(w).preview(path);
        if (!preview || preview->reading().bills.size() != std::size_t(w.fg1->Rows() - 1))
            state.SkipWithError("the preview did not read every bill");
    }
}
BENCHMARK(BM_PreviewXlsx10000Bills)->Unit(benchmark::kMillisecond);

// The floor: the sheet reader alone on the same file.
void BM_ReadSheetAlone(benchmark::State& state) {
    const QString path = tenThousandBills();
    for (auto _ : state) benchmark::DoNotOptimize(sheets::ReadSheet(path, QStringLiteral("Local purchases"), 20000));
}
BENCHMARK(BM_ReadSheetAlone)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return runOffscreen<QApplication>(argc, argv); }
