// Large documents in the document view: a table of 1,000 to 20,000 rows of three cells, one paragraph of
// 256 KB and a run of 3 MB without a paragraph mark, the 1 MB document of many paragraphs, and 8 million
// empty paragraphs. "read" is the RTF reader alone; "show" is reading plus the first page drawn in a view.
// Beside them the floor: the same text handed to Qt as plain text and drawn, and the bytes read from SQLite.
#include "qt_bench_main.h"
#include "platform/documents/document_view.h"
#include "platform/documents/rtf_reader.h"

#include <QApplication>
#include <QTextBrowser>
#include <QTextDocument>
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <sys/resource.h>

#include <map>

namespace {

// A table as a word processor writes it: a row definition with borders before every row.
QByteArray tableRtf(int rows) {
    QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}\\f0\\fs20 Schedule\\par ";
    for (int r = 0; r < rows; ++r) {
        rtf += "\\trowd\\trgaph108\\clbrdrt\\brdrs\\clbrdrb\\brdrs\\cellx2000\\clbrdrt\\brdrs\\clbrdrb\\brdrs\\cellx6000"
               "\\clbrdrt\\brdrs\\clbrdrb\\brdrs\\cellx8000\\pard\\intbl\\qr ";
        rtf += QByteArray::number(r + 1) + "\\cell\\ql Goods of entry " + QByteArray::number(r * 7) +
               "\\cell\\qc 12.5\\cell\\row ";
    }
    return rtf + "\\pard End of the schedule.\\par}";
}

// Words with no paragraph mark until the end; `bytes` long.
QByteArray runRtf(int bytes) {
    QByteArray rtf = "{\\rtf1\\ansi\\f0\\fs20 ";
    int n = 0;
    while (rtf.size() < bytes) rtf += "Every dealer shall pay the tax on turnover " + QByteArray::number(n++) + ". ";
    return rtf + "\\par}";
}

// The 1 MB document of the grid window's bench: many short formatted paragraphs.
QByteArray megabyteRtf() {
    QString rtf = QStringLiteral("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 ");
    while (rtf.size() < 1024 * 1024)
        rtf += QStringLiteral("{\\b Section %1.} Every dealer shall {\\i pay} the tax \\u8377? on the taxable "
                              "turnover\\tat the rates of the {\\ul Schedule}.\\par ").arg(rtf.size());
    return (rtf + u'}').toUtf8();
}

const QByteArray& documentOf(int kind, int size) {
    static std::map<std::pair<int, int>, QByteArray> made;
    QByteArray& bytes = made[{kind, size}];
    if (bytes.isEmpty()) bytes = kind == 0 ? tableRtf(size) : kind == 1 ? runRtf(size) : megabyteRtf();
    return bytes;
}

void read(benchmark::State& state, int kind) {
    const QByteArray& bytes = documentOf(kind, int(state.range(0)));
    int blocks = 0;
    for (auto _ : state) {
        QTextDocument document;
        documents::readRtf(bytes, document);
        blocks = document.blockCount();
    }
    state.counters["blocks"] = blocks;
    state.counters["KB"] = bytes.size() / 1024.0;
}

// Reading, handing over and drawing the first page, as the document window does on a Go.
void show(benchmark::State& state, int kind) {
    const QByteArray& bytes = documentOf(kind, int(state.range(0)));
    documents::DocumentView view;
    view.resize(1000, 700);
    view.show();
    QApplication::processEvents();
    for (auto _ : state) {
        view.setDocument(bytes);
        view.repaint();
        state.PauseTiming();
        view.clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["KB"] = bytes.size() / 1024.0;
}

void BM_ReadTable(benchmark::State& state) { read(state, 0); }
void BM_ShowTable(benchmark::State& state) { show(state, 0); }
void BM_ReadRun(benchmark::State& state) { read(state, 1); }
void BM_ShowRun(benchmark::State& state) { show(state, 1); }
void BM_ReadMegabyte(benchmark::State& state) { read(state, 2); }
void BM_ShowMegabyte(benchmark::State& state) { show(state, 2); }
BENCHMARK(BM_ReadTable)->Arg(1000)->Arg(2000)->Arg(5000)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShowTable)->Arg(1000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadRun)->Arg(256 << 10)->Arg(3 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShowRun)->Arg(256 << 10)->Arg(3 << 20)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadMegabyte)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShowMegabyte)->Arg(0)->Unit(benchmark::kMillisecond);

// The floor: the text of the 3 MB run as plain text in the same browser, drawn.
void BM_PlainTextFloor(benchmark::State& state) {
    QTextDocument source;
    documents::readRtf(documentOf(1, 3 << 20), source);
    const QString text = source.toPlainText();
    QTextBrowser browser;
    browser.resize(1000, 700);
    browser.show();
    for (auto _ : state) {
        browser.setPlainText(text);
        browser.repaint();
    }
}
BENCHMARK(BM_PlainTextFloor)->Unit(benchmark::kMillisecond);

// The floor of the store: the 1 MB document's bytes read back from an SQLite row.
void BM_SqliteBlobFloor(benchmark::State& state) {
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    sqlite3_exec(db, "CREATE TABLE d (fname BLOB)", nullptr, nullptr, nullptr);
    const QByteArray& bytes = documentOf(2, 0);
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO d VALUES (?)", -1, &st, nullptr);
    sqlite3_bind_blob(st, 1, bytes.constData(), int(bytes.size()), SQLITE_STATIC);
    sqlite3_step(st);
    sqlite3_finalize(st);
    for (auto _ : state) {
        sqlite3_prepare_v2(db, "SELECT fname FROM d", -1, &st, nullptr);
        sqlite3_step(st);
        QByteArray copy(static_cast<const char*>(sqlite3_column_blob(st, 0)), sqlite3_column_bytes(st, 0));
        benchmark::DoNotOptimize(copy.data());
        sqlite3_finalize(st);
    }
    sqlite3_close(db);
}
BENCHMARK(BM_SqliteBlobFloor)->Unit(benchmark::kMillisecond);

// 8 million empty paragraphs: the time and the growth of the process's peak memory.
void BM_ReadEmptyParagraphs(benchmark::State& state) {
    const QByteArray bytes = "{\\rtf1 a" + QByteArray("\\par ").repeated(int(state.range(0))) + "b}";
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    int blocks = 0;
    for (auto _ : state) {
        QTextDocument document;
        documents::readRtf(bytes, document);
        blocks = document.blockCount();
    }
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    state.counters["blocks"] = blocks;
    state.counters["peak MB growth"] = double(after.ru_maxrss - before.ru_maxrss) / 1024.0;
}
BENCHMARK(BM_ReadEmptyParagraphs)->Arg(8000000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return runOffscreen<QApplication>(argc, argv); }
