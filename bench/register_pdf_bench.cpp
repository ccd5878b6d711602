// The local purchase register of a month with 2,000 bills, from the staging tables to a PDF file:
// template and data read, laid out, written. It must stay under two seconds. Beside it, the floor: the
// same 2,000 lines of text drawn straight into a PDF, paged, with nothing read or laid out.
#include "platform/reports/register_painter.h"
#include "qt_bench_main.h"
#include "return_files.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <benchmark/benchmark.h>

namespace {

constexpr int kBills = 2000;

void fill(store::Connection& cn) {
    const char* rates[] = {"      0", "      1", "      4", "    12.5", "     20"};
    for (int r = 1; r <= kBills; ++r)
        cn.Execute(QString("INSERT INTO tblRptPurchase1 (SlNo, BillDate, Party, TIN, BillNo, RateOfTax, Amount, Tax, "
                           "Cess, NetAmount, cMonth, Place, cCode) VALUES ('%1', '%2-03-26', 'Party number %1 Traders', "
                           "'32071100', 'B-%1', '%3', %4, %5, 1.25, %6, 'March', 'Kochi', '')")
                       .arg(r).arg(1 + (r - 1) * 28 / kBills, 2, 10, QChar('0')).arg(rates[r % 5])
                       .arg(1000 + r).arg(r % 125 + 0.5).arg(1000 + r + r % 125 + 1.75));
    cn.Execute("INSERT INTO tblRptPurchaseC (cCode, cMonth, cAddress, PTA0, PRT0, PCTAmt, PCTTotal, Place, eDate) "
               "VALUES ('', 'March', '', 1000, 1000, 1000, 1000, 'Kochi', '15-03-26')");
}

void BM_RegisterPdf(benchmark::State& state) {
    static ReturnFiles month(fill);
    const QString pdf = month.folder.filePath("register.pdf");
    int pages = 0;
    for (auto _ : state)
        pages = reports::writePdf(QStringLiteral(VORLAN_SOURCE_DIR "/data/program/RptPurchase.rpt"),
                                  month.folder.path() + "\\nwForm10DB.mdb", pdf);
    state.counters["pages"] = pages;
}
BENCHMARK(BM_RegisterPdf)->Unit(benchmark::kMillisecond);

void BM_PlainTextPdfFloor(benchmark::State& state) {
    QTemporaryDir dir;
    QStringList lines;
    for (int r = 1; r <= kBills; ++r)
        lines << QString("%1  %2-03-26  Party number %1 Traders  32071100  B-%1  4  %3.00  %4.50  1.25  %5.75")
                     .arg(r).arg(1 + (r - 1) * 28 / kBills, 2, 10, QChar('0')).arg(1000 + r).arg(r % 125).arg(1000 + r);
    for (auto _ : state) {
        QPdfWriter pdf(dir.filePath("floor.pdf"));
        pdf.setResolution(300);
        QPainter p(&pdf);
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setPointSizeF(8);
        p.setFont(f);
        const int step = p.fontMetrics().height() * 3 / 2;
        int y = step;
        for (const QString& line : lines) {
            if (y > pdf.height() - step) {
                pdf.newPage();
                y = step;
            }
            p.drawText(0, y, line);
            y += step;
        }
    }
}
BENCHMARK(BM_PlainTextPdfFloor)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return runOffscreen<QGuiApplication>(argc, argv); }
