// One key press in the purchase editor on a register of 5,000 bills: the editor's handlers with every
// totals pass they run. A key must stay under a frame (16 ms) at this size, far beyond a real month.
#include "platform/forms/flex_grid.h"
#include "returns/frm_normal.h"

#include <QApplication>
#include <QTest>
#include <benchmark/benchmark.h>

namespace {

constexpr int kBills = 5000;

returns::frmNormal& windowWithBills() {
    static int argc = 1;
    static char name[] = "bill-grid-bench";
    static char* argv[] = {name, nullptr};
    static QApplication app(argc, argv);
    static returns::frmNormal w;
    static bool filled = false;
    if (!filled) {
        const char* rates[] = {"      0", "      1", "      4", "    12.5", "     20       ", "CST"};
        w.fg1->setRows(kBills + 2);
        for (int r = 1; r <= kBills; ++r) {
            w.fg1->setTextMatrix(r, 0, QString::number(r));
            w.fg1->setTextMatrix(r, 1, "12-03-09");
            w.fg1->setTextMatrix(r, 2, QStringLiteral("Party %1").arg(r));
            w.fg1->setTextMatrix(r, 5, rates[r % 6]);
            w.fg1->setTextMatrix(r, 6, QStringLiteral("%1.00").arg(1000 + r));
            w.fg1->setTextMatrix(r, 7, QStringLiteral("%1.50").arg(r % 125));
            w.fg1->setTextMatrix(r, 8, "1.25");
            w.fg1->setTextMatrix(r, 9, QStringLiteral("%1.75").arg(1000 + r + r % 125 + 1));
        }
        w.show();
        w.activateWindow();
        if (!QTest::qWaitForWindowActive(&w)) qFatal("the window did not become active");
        w.fg1->setRow(kBills / 2);
        w.fg1->setCol(6);
        filled = true;
    }
    return w;
}

void BM_DigitKey(benchmark::State& state) {
    auto& w = windowWithBills();
    for (auto _ : state) {
        QTest::keyClick(w.txtGrid1, Qt::Key_7);
        if (w.txtGrid1->text().size() > 6) w.txtGrid1->clear();
    }
}
BENCHMARK(BM_DigitKey)->Unit(benchmark::kMillisecond);

// Enter moves the cursor: the leave and enter handlers and the walk each run a pass of their own.
void BM_EnterKey(benchmark::State& state) {
    auto& w = windowWithBills();
    for (auto _ : state) {
        state.PauseTiming();
        w.fg1->setRow(kBills / 2);
        w.fg1->setCol(6);
        state.ResumeTiming();
        QTest::keyClick(w.txtGrid1, Qt::Key_Return);
    }
}
BENCHMARK(BM_EnterKey)->Unit(benchmark::kMillisecond);

// The totals pass alone, against which the key presses can be read.
void BM_TotalsPass(benchmark::State& state) {
    auto& w = windowWithBills();
    for (auto _ : state) w.procTotalCal1();
}
BENCHMARK(BM_TotalsPass)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
