// Add of a month with 1,000 purchase and 1,000 sales bills: the two writers, the two reads back and the
// summary row, in the one transaction of the press. It must stay under a second. Beside it, the same
// rows inserted straight through the store in one transaction: the floor the Add is read against.
#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/msgbox.h"
#include "qt_bench_main.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int kBills = 1000;

void fill(forms::FlexGrid* grid, const char* party) {
    const char* rates[] = {"      0", "      1", "      4", "    12.5", "     20       "};
    grid->setRows(kBills + 1);
    for (int r = 1; r <= kBills; ++r) {
        grid->setTextMatrix(r, 0, QString::number(r));
        grid->setTextMatrix(r, 1, QStringLiteral("%1-03-26").arg(1 + r % 28, 2, 10, QChar('0')));
        grid->setTextMatrix(r, 2, QStringLiteral("%1 %2").arg(party).arg(r));
        grid->setTextMatrix(r, 3, "32071100");
        grid->setTextMatrix(r, 4, QStringLiteral("B-%1").arg(r));
        grid->setTextMatrix(r, 5, rates[r % 5]);
        grid->setTextMatrix(r, 6, QStringLiteral("%1.00").arg(1000 + r));
        grid->setTextMatrix(r, 7, QStringLiteral("%1.50").arg(r % 125));
        grid->setTextMatrix(r, 8, "1.25");
        grid->setTextMatrix(r, 9, QStringLiteral("%1.75").arg(1000 + r + r % 125 + 1));
    }
}

struct Setup {
    Setup() {
        basic::SetAppPath(folder.path());
        basic::Clock::set(QDate(2026, 3, 15));
        forms::MsgBoxRecorder quiet;
        w.Show();
    }
    QTemporaryDir folder;
    returns::frmNormal w;
};

// Made once and let go only at the end of main, before the store's globals go.
Setup* made = nullptr;

Setup& setup() {
    if (!made) made = new Setup;
    return *made;
}

void BM_AddMonth(benchmark::State& state) {
    auto& s = setup();
    forms::MsgBoxRecorder quiet;
    for (auto _ : state) {
        state.PauseTiming();
        fill(s.w.fg1, "Purchase party");
        fill(s.w.fg2, "Sales party");
        state.ResumeTiming();
        s.w.cmdAdd_Click();
    }
    if (quiet.boxes().back().title != "Success...........!") state.SkipWithError("Add failed");
}
BENCHMARK(BM_AddMonth)->Unit(benchmark::kMillisecond);

// The floor: the month's 2,000 rows deleted and inserted through the store alone, in one transaction.
void BM_StoreFloor(benchmark::State& state) {
    setup();
    for (auto _ : state) {
        returns::ConnectReturnStore();
        store::Connection cn = returns::cnReturn;
        cn.BeginTrans();
        for (const char* table : {"tblPurchase1", "tblSales"}) {
            cn.Execute(QStringLiteral("DELETE FROM %1 WHERE cMonth='March'").arg(table));
            for (int r = 1; r <= kBills; ++r)
                cn.Execute(QStringLiteral("INSERT INTO %1 (SlNo, BillDate, Party, RateOfTax, Amount, cMonth, cCode) "
                                          "VALUES ('%2', '2026-03-01', 'Party %2', '4', 1000, 'March', '')")
                               .arg(table)
                               .arg(r));
        }
        cn.CommitTrans();
    }
}
BENCHMARK(BM_StoreFloor)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return runOffscreen<QApplication>(argc, argv, [] {
        delete made;
        returns::ReleaseReturnStores();
        returns::rsLookup = returns::rsBills = returns::rsReport = store::Recordset::nothing();
    });
}
