// The e-filing lists of a month of 10,000 bills (4,000 local purchases, 2,000 inter-state purchases,
// 4,000 sales of which 1,000 CST): read as the return window reads them, checked, made into the four
// sheets. It must stay under a second. Then the lists written as XLSX and CSV. Beside them the floors:
// the same rows read straight with SQLite, and the same text written straight to a file.
#include "qt_bench_main.h"
#include "return_files.h"
#include "returns/e_filing_lists.h"

#include <QCoreApplication>
#include <QFile>

namespace {

void fill(store::Connection& cn) {
    const struct { const char* table; int bills; } tables[] = {{"tblPurchase1", 4000}, {"tblPurchaseInterState1", 2000}, {"tblSales", 4000}};
    const char* rates[] = {"0", "1", "4", "12.5", "20"};
    for (const auto& t : tables)
        for (int r = 1; r <= t.bills; ++r) {
            const bool cst = QLatin1String(t.table) == QLatin1String("tblSales") && r % 4 == 0;
            // A bill in fifty has no TIN, one in a hundred a tax typed wrong.
            cn.Execute(QString("INSERT INTO %1 (SlNo, BillDate, Party, TIN, BillNo, RateOfTax, Amount, Tax, Cess, NetAmount, "
                               "cMonth, cCode) VALUES ('%2', '2027-03-%3', 'Party %4', '%5', 'B-%2', '%6', 1000, %7, 0, 1040, 'March', '')")
                           .arg(QLatin1String(t.table)).arg(r).arg(1 + r % 28, 2, 10, QChar('0')).arg(r % 700)
                           .arg(r % 50 == 0 ? QString() : QString("3207%1").arg(1000000 + r))
                           .arg(cst ? "CST" : rates[r % 5]).arg(r % 100 == 0 ? 7 : (cst ? 20 : QString(rates[r % 5]).toDouble() * 10)));
        }
}

ReturnFiles& book() {
    static ReturnFiles* made = new ReturnFiles(fill);   // let go with the process, after the store's globals
    return *made;
}

void BM_FilingListsAndChecks(benchmark::State& state) {
    book();
    size_t findings = 0;
    for (auto _ : state) {
        const returns::FilingMonth month = returns::ReadFilingMonth(QStringLiteral("March"));
        for (returns::FilingKind kind : returns::kFilingKinds) benchmark::DoNotOptimize(returns::FilingSheet(month, kind).rows.size());
        findings = month.findings.size();
    }
    state.counters["findings"] = double(findings);
}
BENCHMARK(BM_FilingListsAndChecks)->Unit(benchmark::kMillisecond);

void BM_FilingBillsFloor(benchmark::State& state) {
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(book().folder.filePath("nwForm10DB.mdb")).constData(), &db);
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadStraight(db, {"SELECT * FROM tblPurchase1 WHERE cCode='' AND cMonth='March' ORDER BY BillDate",
                                                   "SELECT * FROM tblPurchaseInterState1 WHERE cCode='' AND cMonth='March' ORDER BY BillDate",
                                                   "SELECT * FROM tblSales WHERE cCode='' AND cMonth='March' ORDER BY BillDate"}));
    sqlite3_close(db);
}
BENCHMARK(BM_FilingBillsFloor)->Unit(benchmark::kMillisecond);

void BM_FilingFiles(benchmark::State& state) {
    const returns::FilingMonth month = returns::ReadFilingMonth(QStringLiteral("March"));
    QTemporaryDir out;
    for (auto _ : state) benchmark::DoNotOptimize(returns::WriteFilingFiles(month, out.path(), QString()).size());
}
BENCHMARK(BM_FilingFiles)->Unit(benchmark::kMillisecond);

// The floor: the same 10,000 lines of text written straight to a file, twice (as the two kinds of file).
void BM_PlainFileFloor(benchmark::State& state) {
    QByteArray text;
    for (int r = 1; r <= 10000; ++r) text += QString("B-%1,%2-03-2027,3207%3,Party %4,,1000.00,40.00,0.00\n").arg(r).arg(1 + r % 28).arg(1000000 + r).arg(r % 700).toUtf8();
    QTemporaryDir out;
    for (auto _ : state)
        for (const char* name : {"a.xlsx", "a.csv"}) {
            QFile f(out.filePath(name));
            f.open(QIODevice::WriteOnly);
            f.write(text);
        }
}
BENCHMARK(BM_PlainFileFloor)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return runOffscreen<QCoreApplication>(argc, argv); }
