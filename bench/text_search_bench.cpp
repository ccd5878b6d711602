// Searching the words of a library of 20,000 documents, about 100 MB of text: a two-word query, ranked by
// BM25, with snippets, the best 50. Beside it the same texts scanned with LIKE '%...%' straight on SQLite:
// every document holding both words (what a ranking needs), and the first 50 found (no ranking at all).
// The library is built twice, with and without its text index; the difference gives the index's build
// time and its share of the first library file, reported with the searches' counters and on stderr.
#include "circular_titles.h"
#include "library/library_text.h"
#include "platform/store/connection.h"
#include "platform/store/text_index.h"
#include "writer.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <random>

namespace {

constexpr int kDocuments = 20000;
constexpr int kTextBytes = 5000;
const QString kQuery = QStringLiteral("input credit");

// Words drawn by Zipf's law, as the words of a real text are: the law's own words first, so that the
// query's two words stand at ranks a real circular gives them, then made-up words to 30,000.
struct Texts {
    QStringList words;
    std::mt19937 rng{2009};
    std::discrete_distribution<int> pick;
    Texts() {
        words = QStringLiteral("the of tax and to in a by dealer goods is for on sale be under section this "
                               "or rate as that with return from any officer month turnover state shall "
                               "purchase registered act which credit not assessment input paid penalty "
                               "period year notification circular rules schedule exempt works contract")
                    .split(u' ');
        static const char* syllables[] = {"ka", "ra", "ma", "la", "na", "pa", "ta", "va", "sa", "da",
                                          "ri", "mo", "nu", "le", "tho", "shi", "kku", "ppa", "ndi", "yam"};
        std::mt19937 make(7);
        std::uniform_int_distribution<int> syllable(0, 19), length(2, 4);
        while (words.size() < 30000) {
            QString w;
            for (int n = length(make); n > 0; --n) w += QLatin1String(syllables[syllable(make)]);
            words << w;
        }
        std::vector<double> weights;
        for (qsizetype r = 1; r <= words.size(); ++r) weights.push_back(1.0 / double(r));
        pick = std::discrete_distribution<int>(weights.begin(), weights.end());
    }
    QByteArray next() {
        QString text;
        int sentence = 0;
        while (text.size() < kTextBytes) {
            text += words[pick(rng)];
            text += ++sentence % 14 == 0 ? QStringLiteral(".\n") : QStringLiteral(" ");
        }
        return text.toUtf8();
    }
};

std::vector<libbuilder::TableRows> libraryRows() {
    libbuilder::TableRows kerala{"Kerala", {"id", "name", "SecDesc", "type", "ChapterNo", "fname"}, {}};
    Texts texts;
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

struct Libraries {
    QTemporaryDir with, without;
    double buildWith = 0, buildWithout = 0, sizeWith = 0, sizeWithout = 0, textMb = 0;
    Libraries() {
        const auto rows = libraryRows();
        for (const auto& r : rows[0].rows) textMb += double(std::get<QByteArray>(r.values[5]).size()) / 1e6;
        QElapsedTimer clock;
        clock.start();
        libbuilder::writeLibrary(rows, without.path(), false);
        buildWithout = double(clock.restart()) / 1000;
        libbuilder::writeLibrary(rows, with.path(), true);
        buildWith = double(clock.elapsed()) / 1000;
        sizeWith = double(QFileInfo(with.filePath("0909214SD01.mdb")).size()) / 1e6;
        sizeWithout = double(QFileInfo(without.filePath("0909214SD01.mdb")).size()) / 1e6;
        std::fprintf(stderr,
                     "library of %d documents, %.1f MB of text\n"
                     "build without index %.1f s, with index %.1f s: the index takes %.1f s\n"
                     "first library file %.1f MB without index, %.1f MB with: the index is %.1f MB, %.0f%% of it\n",
                     kDocuments, textMb, buildWithout, buildWith, buildWith - buildWithout, sizeWithout, sizeWith,
                     sizeWith - sizeWithout, 100 * (sizeWith - sizeWithout) / sizeWith);
    }
    void report(benchmark::State& state) const {
        state.counters["index_build_s"] = buildWith - buildWithout;
        state.counters["index_share_pct"] = 100 * (sizeWith - sizeWithout) / sizeWith;
    }
};

Libraries& libraries() {
    static Libraries l;
    return l;
}

QString connectionString(const QTemporaryDir& dir) {
    return QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=%1/0909214SD01.mdb;Uid=admin;Pwd=bergamot;")
        .arg(dir.path());
}

// As the search window asks it: key, title, kind and date of the best 50, each with its snippet.
void BM_TextSearch_Store(benchmark::State& state) {
    store::TextIndex index(connectionString(libraries().with));
    store::TextSearch search;
    search.table = library::kTextTable;
    search.columns = library::kTextColumns.mid(library::textKey, library::textDate + 1);
    search.weights = library::kTextWeights;
    search.snippetColumn = library::textBody;
    const store::TextQuery query = store::parseTextQuery(kQuery);
    size_t hits = 0;
    for (auto _ : state) hits = index.search(search, query).size();
    state.counters["results"] = double(hits);
    libraries().report(state);
}

sqlite3* plainHandle() {
    static sqlite3* db = [] {
        sqlite3* h = nullptr;
        const QByteArray path = (libraries().without.path() + QStringLiteral("/0909214SD01.mdb")).toUtf8();
        sqlite3_open_v2(path.constData(), &h, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_exec(h, "PRAGMA key = 'bergamot'", nullptr, nullptr, nullptr);
        sqlite3_exec(h, "PRAGMA cache_size = -65536", nullptr, nullptr, nullptr);  // as the store's handles
        return h;
    }();
    return db;
}

void runPlain(const char* sql, benchmark::State& state) {
    long rows = 0;
    for (auto _ : state) {
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(plainHandle(), sql, -1, &st, nullptr);
        rows = 0;
        while (sqlite3_step(st) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(st); ++i) benchmark::DoNotOptimize(sqlite3_column_text(st, i));
            ++rows;
        }
        sqlite3_finalize(st);
    }
    state.counters["results"] = double(rows);
}

// A snippet as the scan can make one: the text around the first word.
#define LIKE_SCAN                                                                                              \
    "SELECT id, name, substr(CAST(fname AS TEXT), max(1, instr(lower(CAST(fname AS TEXT)), 'input') - 80), 200) " \
    "FROM Kerala WHERE CAST(fname AS TEXT) LIKE '%input%' AND CAST(fname AS TEXT) LIKE '%credit%'"

void BM_LikeScanAll_Sqlite(benchmark::State& state) { runPlain(LIKE_SCAN, state); }
void BM_LikeScanFirst50_Sqlite(benchmark::State& state) { runPlain(LIKE_SCAN " LIMIT 50", state); }

BENCHMARK(BM_TextSearch_Store)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
BENCHMARK(BM_LikeScanAll_Sqlite)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);
BENCHMARK(BM_LikeScanFirst50_Sqlite)->Unit(benchmark::kMillisecond)->Repetitions(7)->ReportAggregatesOnly(true);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
