// Searching the words of a library of 20,000 documents, about 100 MB of text: a two-word query, ranked by
// BM25, with snippets, the best 50. Beside it the same texts scanned with LIKE '%...%' straight on SQLite:
// every document holding both words (what a ranking needs), and the first 50 found (no ranking at all).
// Two queries: "input credit", words that each stand in about a quarter of the documents, as the words of
// a topic do; and "dealer goods", two of the commonest words, in nearly every document, the worst case.
// The library is built twice, with and without its text index; the difference gives the index's build
// time and its share of the first library file, reported with the searches' counters and on stderr.
#include "qt_bench_main.h"
#include "circular_titles.h"
#include "zipf_texts.h"
#include "library/library_text.h"
#include "platform/store/connection.h"
#include "platform/store/text_index.h"
#include "writer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <ctime>
#include <random>

namespace {

constexpr int kDocuments = 20000;

std::vector<libbuilder::TableRows> libraryRows() {
    libbuilder::TableRows kerala{"Kerala", {"id", "name", "SecDesc", "type", "ChapterNo", "fname"}, {}};
    ZipfTexts texts(5000);
    CircularTitles titles;
    for (int i = 0; i < kDocuments; ++i) {
        const auto [title, label] = titles.next();
        kerala.rows.push_back({"generated", {qint64(i + 1), label + u' ' + title, QString(), QString("Circular"),
                                             qint64(0), texts.next()}, {}});
    }
    return {kerala,
            {"Keralafields", {"ID"}, {}},
            {"Globalvat", {"name", "type", "fname"}, {}},
            {"Globalvatse", {"name", "type", "fname"}, {}},
            {"Allshedule", {"ID", "Schname", "Stid", "fname"}, {}},
            {"CAPractice", {"ID", "name", "Type", "Weight", "fname"}, {}}};
}

// Built in temporary folders, or with VORLAN_TEXT_BENCH_DIR once into that folder and read from it by
// later runs (the build takes minutes); the build figures are those of the run that built them.
struct Libraries {
    QTemporaryDir temporary;
    QString with, without;
    double buildWith = 0, buildWithout = 0, cpuWith = 0, cpuWithout = 0, sizeWith = 0, sizeWithout = 0;
    Libraries() {
        const QString kept = qEnvironmentVariable("VORLAN_TEXT_BENCH_DIR");
        const QString root = kept.isEmpty() ? temporary.path() : kept;
        with = root + QStringLiteral("/with");
        without = root + QStringLiteral("/without");
        QFile figures(root + QStringLiteral("/build-seconds"));
        if (kept.isEmpty() || !figures.open(QIODevice::ReadOnly)) {
            const auto rows = libraryRows();
            double textMb = 0;
            for (const auto& r : rows[0].rows) textMb += double(std::get<QByteArray>(r.values[5]).size()) / 1e6;
            // Wall time, and the process's own processor time, which a busy machine does not stretch.
            QElapsedTimer clock;
            clock.start();
            std::clock_t processor = std::clock();
            libbuilder::writeLibrary(rows, without, false);
            buildWithout = double(clock.restart()) / 1000;
            cpuWithout = double(std::clock() - processor) / CLOCKS_PER_SEC;
            processor = std::clock();
            libbuilder::writeLibrary(rows, with, true);
            buildWith = double(clock.elapsed()) / 1000;
            cpuWith = double(std::clock() - processor) / CLOCKS_PER_SEC;
            std::fprintf(stderr, "library of %d documents, %.1f MB of text\n", kDocuments, textMb);
            figures.open(QIODevice::WriteOnly);
            figures.write(QByteArray::number(buildWithout) + ' ' + QByteArray::number(buildWith) + ' ' +
                          QByteArray::number(cpuWithout) + ' ' + QByteArray::number(cpuWith));
        } else {
            const QList<QByteArray> read = figures.readAll().split(' ');
            buildWithout = read.value(0).toDouble();
            buildWith = read.value(1).toDouble();
            cpuWithout = read.value(2).toDouble();
            cpuWith = read.value(3).toDouble();
        }
        sizeWith = double(QFileInfo(with + QStringLiteral("/0909214SD01.mdb")).size()) / 1e6;
        sizeWithout = double(QFileInfo(without + QStringLiteral("/0909214SD01.mdb")).size()) / 1e6;
        std::fprintf(stderr,
                     "build without index %.1f s (processor %.1f s), with index %.1f s (%.1f s): the index takes "
                     "%.1f s (%.1f s)\n"
                     "first library file %.1f MB without index, %.1f MB with: the index is %.1f MB, %.0f%% of it\n",
                     buildWithout, cpuWithout, buildWith, cpuWith, buildWith - buildWithout, cpuWith - cpuWithout,
                     sizeWithout, sizeWith,
                     sizeWith - sizeWithout, 100 * (sizeWith - sizeWithout) / sizeWith);
    }
    void report(benchmark::State& state) const {
        state.counters["index_build_s"] = buildWith - buildWithout;
        state.counters["index_build_cpu_s"] = cpuWith - cpuWithout;
        state.counters["index_share_pct"] = 100 * (sizeWith - sizeWithout) / sizeWith;
    }
};

Libraries& libraries() {
    static Libraries l;
    return l;
}

QString connectionString(const QString& dir) {
    return QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=%1/0909214SD01.mdb;Uid=admin;Pwd=bergamot;")
        .arg(dir);
}

// As the search window asks it: key, title, kind and date of the best 50, each with its snippet.
void textSearch(benchmark::State& state, const char* words) {
    store::TextIndex index(connectionString(libraries().with));
    store::TextSearch search;
    search.table = library::kTextTable;
    search.columns = library::kTextColumns.mid(library::textKey, library::textDate + 1);
    search.weights = library::kTextWeights;
    search.snippetColumn = library::textBody;
    const store::TextQuery query = store::parseTextQuery(QString::fromLatin1(words));
    size_t hits = 0;
    for (auto _ : state) hits = index.search(search, query).size();
    state.counters["results"] = double(hits);
    libraries().report(state);
}
void BM_TextSearch_Store(benchmark::State& state) { textSearch(state, "input credit"); }
void BM_TextSearchCommonWords_Store(benchmark::State& state) { textSearch(state, "dealer goods"); }

sqlite3* plainHandle() {
    static sqlite3* db = [] {
        sqlite3* h = nullptr;
        const QByteArray path = (libraries().without + QStringLiteral("/0909214SD01.mdb")).toUtf8();
        sqlite3_open_v2(path.constData(), &h, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_exec(h, "PRAGMA key = 'bergamot'", nullptr, nullptr, nullptr);
        sqlite3_exec(h, "PRAGMA cache_size = -65536", nullptr, nullptr, nullptr);  // as the store's handles
        return h;
    }();
    return db;
}

// Every document holding both words, with the text around the first as its snippet; "first" stops at 50.
void likeScan(benchmark::State& state, const char* first, const char* second, bool first50) {
    const QByteArray sql =
        QStringLiteral("SELECT id, name, substr(CAST(fname AS TEXT), max(1, instr(lower(CAST(fname AS TEXT)), '%1') "
                       "- 80), 200) FROM Kerala WHERE CAST(fname AS TEXT) LIKE '%%1%' AND CAST(fname AS TEXT) "
                       "LIKE '%%2%'%3")
            .arg(QLatin1String(first), QLatin1String(second), first50 ? QStringLiteral(" LIMIT 50") : QString())
            .toUtf8();
    long rows = 0;
    for (auto _ : state) {
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(plainHandle(), sql.constData(), -1, &st, nullptr);
        rows = 0;
        while (sqlite3_step(st) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(st); ++i) benchmark::DoNotOptimize(sqlite3_column_text(st, i));
            ++rows;
        }
        sqlite3_finalize(st);
    }
    state.counters["results"] = double(rows);
}
void BM_LikeScanAll_Sqlite(benchmark::State& state) { likeScan(state, "input", "credit", false); }
void BM_LikeScanFirst50_Sqlite(benchmark::State& state) { likeScan(state, "input", "credit", true); }
void BM_LikeScanAllCommonWords_Sqlite(benchmark::State& state) { likeScan(state, "dealer", "goods", false); }

BENCHMARK(BM_TextSearch_Store)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
BENCHMARK(BM_LikeScanAll_Sqlite)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_LikeScanFirst50_Sqlite)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
BENCHMARK(BM_TextSearchCommonWords_Store)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
BENCHMARK(BM_LikeScanAllCommonWords_Sqlite)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace

int main(int argc, char** argv) { return runOffscreen<QGuiApplication>(argc, argv); }
