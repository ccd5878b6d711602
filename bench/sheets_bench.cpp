// Spreadsheet files at sizes beyond any month: 10,000 bills written as XLSX, ODS and CSV (each must stay
// under a second), beside a plain write of the same number of bytes; the preview of a 10,000-row XLSX
// (under a second), beside a plain read of its bytes; and the preview of a sheet of a million rows,
// which reads its first 10,000 and no more.
#include "plain_write.h"
#include "platform/sheets/sheet_reader.h"
#include "platform/sheets/sheet_writer.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <zip.h>


namespace {

constexpr int kBills = 10000;

QTemporaryDir& folder() {
    static QTemporaryDir dir;
    return dir;
}

// A register of bills as the export writes one: date, party, TIN, bill number, rate, amount, tax, cess.
const std::vector<sheets::Sheet>& bills() {
    static const std::vector<sheets::Sheet> book = [] {
        using sheets::Cell;
        sheets::Sheet s{"Purchases", {}, {12, 36, 14, 10, 8, 14, 12, 10}};
        s.rows.push_back({Cell::ofText("Bill Date", true), Cell::ofText("Party", true), Cell::ofText("TIN", true),
                          Cell::ofText("Bill No", true), Cell::ofText("Rate", true), Cell::ofText("Amount", true),
                          Cell::ofText("Tax", true), Cell::ofText("Cess", true)});
        const double rates[] = {0, 1, 5, 12.5, 14.5};
        for (int r = 0; r < kBills; ++r) {
            const double amount = 1000 + r * 3.25;
            const double rate = rates[r % 5];
            s.rows.push_back({Cell::ofDate(QDate(2026, 3, 1 + r % 31)), Cell::ofText(QStringLiteral("Kerala Agencies and Traders %1").arg(r % 700)),
                              Cell::ofText(QStringLiteral("3201%1").arg(r % 9000000, 7, 10, QLatin1Char('0'))),
                              Cell::ofText(QStringLiteral("B-%1").arg(r)), Cell::ofNumber(rate, "0.00"),
                              Cell::ofNumber(amount, "#,##0.00"), Cell::ofNumber(amount * rate / 100, "#,##0.00"),
                              Cell::ofNumber(amount * rate / 10000, "#,##0.00")});
        }
        return std::vector<sheets::Sheet>{s};
    }();
    return book;
}

void write(benchmark::State& state, const QString& name, void (*writer)(const QString&)) {
    bills();
    const QString path = folder().filePath(name);
    for (auto _ : state) writer(path);
    state.counters["bytes"] = double(QFileInfo(path).size());
}

void BM_WriteXlsx(benchmark::State& state) {
    write(state, "bills.xlsx", [](const QString& p) { sheets::WriteXlsx(p, bills()); });
}
void BM_WriteOds(benchmark::State& state) {
    write(state, "bills.ods", [](const QString& p) { sheets::WriteOds(p, bills()); });
}
void BM_WriteCsv(benchmark::State& state) {
    write(state, "bills.csv", [](const QString& p) { sheets::WriteCsv(p, bills().front()); });
}

// The floor: the bytes of the file written by a plain write and flushed to disk, as the writers do.
void plainWrite(benchmark::State& state, const QString& name) {
    QFile written(folder().filePath(name));
    if (!written.exists()) {
        if (name.endsWith(".xlsx")) sheets::WriteXlsx(written.fileName(), bills());
        else if (name.endsWith(".ods")) sheets::WriteOds(written.fileName(), bills());
        else sheets::WriteCsv(written.fileName(), bills().front());
    }
    written.open(QIODevice::ReadOnly);
    const QByteArray bytes = written.readAll();
    const QByteArray path = QFile::encodeName(folder().filePath("plain." + name));
    for (auto _ : state) writeStraight(path, bytes);
    state.counters["bytes"] = double(bytes.size());
}
void BM_PlainWriteOfXlsxBytes(benchmark::State& state) { plainWrite(state, "floor.xlsx"); }
void BM_PlainWriteOfOdsBytes(benchmark::State& state) { plainWrite(state, "floor.ods"); }
void BM_PlainWriteOfCsvBytes(benchmark::State& state) { plainWrite(state, "floor.csv"); }

void read(benchmark::State& state, const QString& path) {
    size_t rows = 0;
    for (auto _ : state) rows = sheets::ReadSheet(path, QString(), kBills + 1).rows.size();
    state.counters["rows"] = double(rows);
}

QString preview(const QString& name) {
    const QString path = folder().filePath("preview." + name);
    if (!QFile::exists(path)) {
        if (name.endsWith("xlsx")) sheets::WriteXlsx(path, bills());
        else if (name.endsWith("ods")) sheets::WriteOds(path, bills());
        else sheets::WriteCsv(path, bills().front());
    }
    return path;
}
void BM_ReadXlsxPreview(benchmark::State& state) { read(state, preview("xlsx")); }
void BM_ReadOdsPreview(benchmark::State& state) { read(state, preview("ods")); }
void BM_ReadCsvPreview(benchmark::State& state) { read(state, preview("csv")); }
void BM_PlainReadOfXlsxBytes(benchmark::State& state) {
    const QString path = preview("xlsx");
    for (auto _ : state) {
        QFile f(path);
        f.open(QIODevice::ReadOnly);
        benchmark::DoNotOptimize(f.readAll());
    }
}

// A sheet of a million rows (a party, an amount, a date; 130 MB of XML), written with libzip alone.
QString millionRows() {
    const QString path = folder().filePath("million.xlsx");
    if (QFile::exists(path)) return path;
    const char* ns = "xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
    const char* rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
    static QByteArray parts[5];
    parts[0] = QByteArray("<workbook ") + ns + " xmlns:r=\"" + rel + "\"><sheets><sheet name=\"Big\" r:id=\"rId1\"/></sheets></workbook>";
    parts[1] = QByteArray("<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"><Relationship Id=\"rId1\" Type=\"") +
               rel + "/worksheet\" Target=\"s.xml\"/><Relationship Id=\"rId2\" Type=\"" + rel + "/sharedStrings\" Target=\"t.xml\"/>" +
               "<Relationship Id=\"rId3\" Type=\"" + rel + "/styles\" Target=\"st.xml\"/></Relationships>";
    parts[2] = QByteArray("<styleSheet ") + ns + "><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/></cellXfs></styleSheet>";
    parts[3] = QByteArray("<sst ") + ns + ">";
    parts[4] = QByteArray("<worksheet ") + ns + "><sheetData>";
    for (int r = 1; r <= 1000000; ++r) {
        parts[3] += "<si><t>Party number " + QByteArray::number(r) + " of the big sheet</t></si>";
        const QByteArray n = QByteArray::number(r);
        parts[4] += "<row r=\"" + n + "\"><c r=\"A" + n + "\" t=\"s\"><v>" + QByteArray::number(r - 1) + "</v></c><c r=\"B" + n +
                    "\"><v>" + QByteArray::number(r * 1.25) + "</v></c><c r=\"C" + n + "\" s=\"1\"><v>" + QByteArray::number(46000 + r % 400) +
                    "</v></c></row>";
    }
    parts[3] += "</sst>";
    parts[4] += "</sheetData><mergeCells><mergeCell ref=\"A2:B2\"/></mergeCells></worksheet>";
    zip_t* z = zip_open(QFile::encodeName(path).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    static const QByteArray types("<Types/>");
    zip_file_add(z, "[Content_Types].xml", zip_source_buffer(z, types.constData(), zip_uint64_t(types.size()), 0), 0);
    const char* names[] = {"xl/workbook.xml", "xl/_rels/workbook.xml.rels", "xl/st.xml", "xl/t.xml", "xl/s.xml"};
    for (int i = 0; i < 5; ++i) zip_file_add(z, names[i], zip_source_buffer(z, parts[i].constData(), zip_uint64_t(parts[i].size()), 0), 0);
    zip_close(z);
    for (QByteArray& p : parts) p.clear();
    return path;
}
void BM_ReadMillionRowXlsxPreview(benchmark::State& state) {
    const QString path = millionRows();
    size_t rows = 0;
    for (auto _ : state) rows = sheets::ReadSheet(path, QString(), kBills).rows.size();
    state.counters["rows"] = double(rows);
    state.counters["file_bytes"] = double(QFileInfo(path).size());
}

}  // namespace

BENCHMARK(BM_WriteXlsx)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainWriteOfXlsxBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteOds)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainWriteOfOdsBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriteCsv)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainWriteOfCsvBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadXlsxPreview)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadOdsPreview)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadCsvPreview)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainReadOfXlsxBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadMillionRowXlsxPreview)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_MAIN();
