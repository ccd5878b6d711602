// The library's index work at 100,000 rows: opening an index list, filtering it as the user types, and the
// word search; each beside the same work done straight on SQLite's C API.
#include "platform/store/connection.h"
#include "platform/store/recordset.h"
#include "circular_titles.h"

#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <random>

namespace {

constexpr int kRows = 100000;

const QString kIndexQuery = QStringLiteral(
    "SELECT Keralafields.CircularNumber AS Search, IIf(InStr(1,[Keralafields].[CircularNumber],'-')>0,Left([Keralafields].[CircularNumber],InStr(1,[Keralafields].[CircularNumber],'-')-1),[Keralafields].[CircularNumber]) AS [CIRCULAR NUMBER] FROM Keralafields WHERE (((Len(LTrim(RTrim([Keralafields].[CircularNumber]))))>1)) ORDER BY Keralafields.CircularNumber ASC;");
const char* const kIndexQueryPlain =
    "SELECT CircularNumber AS Search, CASE WHEN instr(CircularNumber,'-')>0 THEN "
    "substr(CircularNumber,1,instr(CircularNumber,'-')-1) ELSE CircularNumber END AS c FROM Keralafields "
    "WHERE length(ltrim(rtrim(CircularNumber)))>1 ORDER BY CircularNumber ASC";
const QString kFilter = QStringLiteral("Search LIKE '*input*' AND Search LIKE '*credit*'");
const char* const kFilterPlain =
    "SELECT CircularNumber FROM Keralafields WHERE CircularNumber LIKE '%input%' AND CircularNumber LIKE '%credit%'";
const QString kWordSearch = QStringLiteral(
    "Select  * from Keralafields where lcase(`CircularNumber`) like '%input% %credit%' ORDER BY CircularNumber");
const char* const kWordSearchPlain =
    "SELECT * FROM Keralafields WHERE lower(CircularNumber) LIKE '%input% %credit%' ORDER BY CircularNumber";

// Label-hyphen-name texts of realistic length: "Cir. No. 41/2007-Clarification on input tax credit ...".
struct Library {
    QTemporaryDir dir;
    QString path;
    store::Connection cn;

    Library() {
        path = dir.path() + QStringLiteral("/0909214SD01.mdb");
        cn.Create(QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=%1;Uid=admin;Pwd=bergamot;").arg(path));
        cn.Execute(QStringLiteral("CREATE TABLE Keralafields (ID INTEGER PRIMARY KEY, "
                                  "CircularNumber TEXT COLLATE NOCASE, ActSection TEXT COLLATE NOCASE)"));
        CircularTitles titles;
        cn.BeginTrans();
        for (int i = 0; i < kRows; ++i) {
            const auto [name, label] = titles.next();
            cn.Execute(QStringLiteral("INSERT INTO Keralafields (CircularNumber, ActSection) VALUES ('%1-%2', '%3')")
                           .arg(label, name.trimmed(), name.left(40)));
        }
        cn.CommitTrans();
    }
};

Library& library() {
    static Library lib;
    return lib;
}

sqlite3* plainHandle() {
    static sqlite3* db = [] {
        sqlite3* h = nullptr;
        sqlite3_open_v2(library().path.toUtf8().constData(), &h, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_exec(h, "PRAGMA key = 'bergamot'", nullptr, nullptr, nullptr);
        sqlite3_exec(h, "PRAGMA cache_size = -65536", nullptr, nullptr, nullptr);   // as the store's handles
        return h;
    }();
    return db;
}

// Steps a statement to its end, reading every text, as a record set must.
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
    state.counters["rows"] = double(rows);
}

void BM_OpenIndexList_Store(benchmark::State& state) {
    library();   // made before the clock runs
    long rows = 0;
    for (auto _ : state) {
        store::Recordset rs;
        rs.Open(kIndexQuery, library().cn, store::Recordset::adOpenStatic, store::Recordset::adLockOptimistic);
        rows = rs.RecordCount();
    }
    state.counters["rows"] = double(rows);
}
void BM_OpenIndexList_Sqlite(benchmark::State& state) {
    runPlain(kIndexQueryPlain, state);
}

// On a list already open: the filter of the SQLite case, then others in turn, so that no earlier result
// (the store keeps the last eight) answers the next one.
void BM_FilterTwoWords_Store(benchmark::State& state) {
    store::Recordset rs;
    rs.Open(kIndexQuery, library().cn, store::Recordset::adOpenStatic, store::Recordset::adLockOptimistic);
    const QString others[] = {kFilter,
                              QStringLiteral("Search LIKE '*works*' AND Search LIKE '*contract*'"),
                              QStringLiteral("Search LIKE '*tax*' AND Search LIKE '*for*'"),
                              QStringLiteral("Search LIKE '*dealers*' AND Search LIKE '*on*'"),
                              QStringLiteral("Search LIKE '*clarification*' AND Search LIKE '*input*'"),
                              QStringLiteral("Search LIKE '*credit*' AND Search LIKE '*works*'"),
                              QStringLiteral("Search LIKE '*contract*' AND Search LIKE '*tax*'"),
                              QStringLiteral("Search LIKE '*for*' AND Search LIKE '*dealers*'"),
                              QStringLiteral("Search LIKE '*on*' AND Search LIKE '*clarification*'")};
    long rows = 0;
    size_t i = 0;
    for (auto _ : state) {
        rs.setFilter(others[i++ % std::size(others)]);
        rows += rs.RecordCount();
    }
    state.counters["rows"] = double(rows) / double(state.iterations());
}
void BM_FilterTwoWordsFirstTime_Store(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        store::Recordset rs;
        rs.Open(kIndexQuery, library().cn, store::Recordset::adOpenStatic, store::Recordset::adLockOptimistic);
        state.ResumeTiming();
        rs.setFilter(kFilter);
        state.PauseTiming();
        rs.Close();
        state.ResumeTiming();
    }
}
void BM_FilterTwoWords_Sqlite(benchmark::State& state) {
    runPlain(kFilterPlain, state);
}

void BM_WordSearch_Store(benchmark::State& state) {
    long rows = 0;
    for (auto _ : state) {
        store::Recordset rs;
        rs.Open(kWordSearch, library().cn, store::Recordset::adOpenDynamic, store::Recordset::adLockOptimistic);
        rows = rs.RecordCount();
    }
    state.counters["rows"] = double(rows);
}
void BM_WordSearch_Sqlite(benchmark::State& state) {
    runPlain(kWordSearchPlain, state);
}

BENCHMARK(BM_OpenIndexList_Store)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenIndexList_Sqlite)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FilterTwoWords_Store)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FilterTwoWordsFirstTime_Store)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FilterTwoWords_Sqlite)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WordSearch_Store)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WordSearch_Sqlite)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
