// Form No. 10 of a month in a book far larger than any real one: 10,000 bills in each bill table of the
// month and 600 page rows of repeated Exports (outside 2008 every press adds rows). Opening the form
// (read, worked out, laid out, its typed boxes made) must stay under 100 ms, its PDF under 300 ms.
// Beside them the floors: the same rows read straight with SQLite, and the same texts drawn straight
// into a three-page PDF with nothing laid out.
#include "qt_bench_main.h"
#include "return_files.h"
#include "returns/form_ten_paper.h"
#include "returns/form_ten_view.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

namespace {

constexpr int kBills = 10000;
constexpr int kExports = 200;   // three rows to each page per press

void fill(store::Connection& cn) {
    for (const char* table : {"tblPurchase1", "tblPurchaseInterState1", "tblSales"})
        for (int r = 1; r <= kBills; ++r)
            cn.Execute(QString("INSERT INTO %1 (SlNo, BillDate, Party, TIN, BillNo, RateOfTax, Amount, Tax, Cess, NetAmount, "
                               "cMonth, cCode) VALUES ('%2', '2026-03-%3', 'Party %2', '32071100000', 'B-%2', '4', 1000, 40, 0, "
                               "1040, 'March', '')")
                           .arg(QLatin1String(table)).arg(r).arg(1 + r % 28, 2, 10, QChar('0')));
    cn.Execute("INSERT INTO tblCommon (cCode, cMonth, PTA4, PTT4, STA4, STT4, STACST, STTCST, netTotal) "
               "VALUES ('', 'March', 10000000, 400000, 10000000, 400000, 5000, 100, 10400000)");
    for (int e = 0; e < kExports; ++e) {
        cn.Execute("INSERT INTO tblMPage3 (cCode, cYear, cSequence, cRPFrom, C1_13, C1_34, C1_35, C1_37, C1_54, C1_55) "
                   "VALUES ('', '2026', 'Monthly', 'March', '0', '10000000.00', '400000.00', '400000.00', '10000000.00', '400000.00')");
        for (int k = 0; k < 2; ++k)
            cn.Execute("INSERT INTO tblMPage1 (cCode, cYear, cSequence, cRPFrom, ISS13, ISS14, ISS17, ISS34, ISS37) "
                       "VALUES ('', '2026', 'Monthly', 'March', 'CST', '5000.00', '100.00', '5000.00', '100.00')");
        for (const char* page : {"tblMPage1", "tblMPage2", "tblMPage4", "tblMPage5"})
            cn.Execute(QString("INSERT INTO %1 (cCode, cYear, cSequence, cRPFrom) VALUES ('', '2026', 'Monthly', 'March')")
                           .arg(QLatin1String(page)));
    }
}

ReturnFiles& book() {
    static ReturnFiles* made = new ReturnFiles(fill);   // let go with the process, after the store's globals
    return *made;
}

void BM_FormTenOpen(benchmark::State& state) {
    book();
    returns::FormTenWindow window;
    for (auto _ : state) {
        returns::FormTenMonth month = returns::ReadFormTen(QStringLiteral("March"));
        window.sheet->setMonth(&month);
        benchmark::DoNotOptimize(month.values.figures.size());
    }
}
BENCHMARK(BM_FormTenOpen)->Unit(benchmark::kMillisecond);

// One key typed in a box: the form worked out anew and the screenful of the page around it painted again.
void BM_FormTenKeystroke(benchmark::State& state) {
    book();
    returns::FormTenWindow window;
    returns::FormTenMonth month = returns::ReadFormTen(QStringLiteral("March"));
    window.sheet->setMonth(&month);
    QImage screen(1100, 800, QImage::Format_RGB32);
    int key = 0;
    for (auto _ : state) {
        month.values.typed.insert(QStringLiteral("SL45"), QString::number(1000 + ++key % 9));
        returns::ComputeFormTen(month.values);
        window.sheet->render(&screen, QPoint(), QRegion(0, 300, 1100, 800));
    }
}
BENCHMARK(BM_FormTenKeystroke)->Unit(benchmark::kMillisecond);

// The floor: the rows the form reads, read straight, every column of every row taken out.
void BM_FormTenRowsFloor(benchmark::State& state) {
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(book().folder.filePath("nwForm10DB.mdb")).constData(), &db);
    const auto statements = {
        "SELECT * FROM tblMPage1 WHERE cCode='' AND cRPFrom='March' ORDER BY rowid",
        "SELECT * FROM tblMPage3 WHERE cCode='' AND cRPFrom='March' ORDER BY rowid",
        "SELECT * FROM tblMPage5 WHERE cCode='' AND cRPFrom='March' ORDER BY rowid",
        "SELECT * FROM tblCommon WHERE cCode='' AND cMonth='March'",
        "SELECT Sum(NetAmount) FROM tblPurchase1 WHERE cCode='' AND cMonth='March'",
        "SELECT Sum(NetAmount) FROM tblPurchaseInterState1 WHERE cCode='' AND cMonth='March'"};
    for (auto _ : state) benchmark::DoNotOptimize(ReadStraight(db, statements));
    sqlite3_close(db);
}
BENCHMARK(BM_FormTenRowsFloor)->Unit(benchmark::kMillisecond);

void BM_FormTenPdf(benchmark::State& state) {
    const returns::FormTenMonth month = returns::ReadFormTen(QStringLiteral("March"));
    const QString pdf = book().folder.filePath("form.pdf");
    int pages = 0;
    for (auto _ : state) pages = returns::WriteFormTenPdf(month, pdf);
    state.counters["pages"] = pages;
}
BENCHMARK(BM_FormTenPdf)->Unit(benchmark::kMillisecond);

// The floor: as many texts as the form prints, drawn straight on three pages of a PDF.
void BM_PlainPdfFloor(benchmark::State& state) {
    const QString pdf = book().folder.filePath("floor.pdf");
    for (auto _ : state) {
        QPdfWriter writer(pdf);
        writer.setResolution(300);
        QPainter p(&writer);
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setPointSizeF(7.2);
        p.setFont(f);
        for (int page = 0; page < 3; ++page) {
            if (page > 0) writer.newPage();
            for (int i = 0; i < 260; ++i) p.drawText(100 + (i % 6) * 500, 100 + (i / 6) * 70, QStringLiteral("1,25,000.00"));
        }
    }
}
BENCHMARK(BM_PlainPdfFloor)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return runOffscreen<QApplication>(argc, argv); }
