// A practice of 2,000 dealers and 10,000 books, far beyond a real one: the register opening in the
// chooser and its finding at each key, a book opened with its month in the return window, and the
// backup of every book. Beside each, the same work done straight on SQLite or as a plain file copy.
#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/msgbox.h"
#include "qt_bench_main.h"
#include "returns/book_chooser.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"
#include "returns/practice_copy.h"
#include "returns/return_books.h"
#include "returns/return_schema.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <filesystem>
#include <sqlite3.h>

namespace {

constexpr int kDealers = 2000, kYears = 5, kBills = 200;
const char* const kPlaces[] = {"Kochi", "Thrissur", "Kozhikode", "Kollam", "Kannur", "Palakkad", "Alappuzha"};

QString tinOf(int dealer) { return QStringLiteral("3207%1").arg(dealer, 7, 10, QChar('0')); }

// The practice, made once: one book made as the program makes it, with a month of bills, and its files
// copied to every other book; the register filled in one transaction.
struct Practice {
    QTemporaryDir folder;
    Practice() {
        QStandardPaths::setTestModeEnabled(true);
        basic::SetAppPath(folder.path());
        basic::Clock::set(QDate(2026, 3, 15));
        returns::DealerRegister& reg = returns::Register();
        reg.Add({tinOf(0), "Dealer 0", "", "", "Kochi", "", ""});
        const returns::ReturnBook first = returns::BookOf(reg, {tinOf(0), 2021});
        returns::MakeBook(reg, first);
        sqlite3* db = nullptr;
        sqlite3_open(QFile::encodeName(first.folder + "/nwForm10DB.mdb").constData(), &db);
        sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
        for (const char* table : {"tblPurchase1", "tblSales"})
            for (int r = 1; r <= kBills; ++r)
                sqlite3_exec(db, QStringLiteral("INSERT INTO %1 (SlNo, BillDate, Party, TIN, BillNo, RateOfTax, Amount, Tax, Cess, "
                                                "NetAmount, cMonth, cCode) VALUES ('%2', '2026-03-%3', 'Party %2', '32079', 'B-%2', "
                                                "'4', 1000, 40, 1, 1041, 'March', '%4')")
                                     .arg(table).arg(r).arg(1 + r % 28, 2, 10, QChar('0')).arg(tinOf(0))
                                     .toUtf8().constData(),
                             nullptr, nullptr, nullptr);
        sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
        sqlite3_close(db);
        reg.connection().BeginTrans();
        for (int d = 0; d < kDealers; ++d) {
            if (d) reg.connection().Execute(QStringLiteral("INSERT INTO dealers (tin, name, place) VALUES ('%1', 'Dealer %2 Traders', '%3')")
                                                .arg(tinOf(d)).arg(d).arg(kPlaces[d % 7]));
            for (int y = 0; y < kYears; ++y) {
                const returns::BookKey key{tinOf(d), 2021 + y};
                if (d == 0 && y == 0) continue;
                std::filesystem::create_directories(returns::BookFolder(key).toStdString());
                for (const char* f : {"nwForm10DB.mdb", "Form10Data.mdb", "TAXDATA.mdb"})
                    std::filesystem::copy_file((first.folder + "/" + f).toStdString(), (returns::BookFolder(key) + "/" + f).toStdString());
                reg.AddBook(key);
            }
        }
        reg.connection().CommitTrans();
    }
};

Practice* made = nullptr;
Practice& practice() {
    if (!made) made = new Practice;
    return *made;
}

// ---- the register -------------------------------------------------------------------------------------

void BM_RegisterOpens(benchmark::State& state) {
    practice();
    for (auto _ : state) {
        returns::ResetRegister();
        returns::BookChooser chooser;
        chooser.show();   // reads the register
        QApplication::processEvents();
        if (chooser.ShownDealers() != kDealers) state.SkipWithError("dealers missing");
    }
}
BENCHMARK(BM_RegisterOpens)->Unit(benchmark::kMillisecond);

// The floor: the two tables read straight into memory.
void BM_RegisterFloor(benchmark::State& state) {
    practice();
    const QByteArray file = QFile::encodeName(returns::Register().file());
    for (auto _ : state) {
        sqlite3* db = nullptr;
        sqlite3_open_v2(file.constData(), &db, SQLITE_OPEN_READONLY, nullptr);
        std::vector<std::string> rows;
        for (const char* sql : {"SELECT tin, name, cst, address, place, phone, email FROM dealers", "SELECT tin, firstYear FROM books"}) {
            sqlite3_stmt* st = nullptr;
            sqlite3_prepare_v2(db, sql, -1, &st, nullptr);
            while (sqlite3_step(st) == SQLITE_ROW)
                for (int c = 0; c < sqlite3_column_count(st); ++c)
                    if (auto* t = sqlite3_column_text(st, c)) rows.emplace_back(reinterpret_cast<const char*>(t));
            sqlite3_finalize(st);
        }
        sqlite3_close(db);
        benchmark::DoNotOptimize(rows);
    }
}
BENCHMARK(BM_RegisterFloor)->Unit(benchmark::kMillisecond);

// Typing "dealer 19 koc" a key at a time, and back: each key finds anew and the list is painted.
void BM_FindAKey(benchmark::State& state) {
    practice();
    returns::BookChooser chooser;
    chooser.show();
    const QString typed = QStringLiteral("dealer 19 koc");
    int key = 0;
    for (auto _ : state) {
        const int n = key % (2 * typed.size());
        chooser.txtFind->setText(typed.left(n < typed.size() ? n + 1 : 2 * typed.size() - n - 1));
        QApplication::processEvents();
        ++key;
    }
}
BENCHMARK(BM_FindAKey)->Unit(benchmark::kMillisecond);

// The floor: the same words looked for by SQLite in the three columns.
void BM_FindFloor(benchmark::State& state) {
    practice();
    sqlite3* db = nullptr;
    sqlite3_open_v2(QFile::encodeName(returns::Register().file()).constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    for (auto _ : state) {
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(db, "SELECT tin FROM dealers WHERE (name || ' ' || tin || ' ' || place) LIKE '%dealer%' AND "
                               "(name || ' ' || tin || ' ' || place) LIKE '%19%' AND (name || ' ' || tin || ' ' || place) LIKE '%koc%'",
                           -1, &st, nullptr);
        int rows = 0;
        while (sqlite3_step(st) == SQLITE_ROW) ++rows;
        sqlite3_finalize(st);
        benchmark::DoNotOptimize(rows);
    }
    sqlite3_close(db);
}
BENCHMARK(BM_FindFloor)->Unit(benchmark::kMillisecond);

// ---- a book and its month -----------------------------------------------------------------------------

// Each round another book (the five years of the dealer whose books hold the month's 400 bills): taken,
// checked, and the return window loaded on its March.
void BM_OpenBookAndMonth(benchmark::State& state) {
    practice();
    forms::MsgBoxRecorder quiet;
    returns::frmNormal w;
    int round = 0;
    for (auto _ : state) {
        const returns::BookKey key{tinOf(0), 2021 + round % kYears};
        ++round;
        if (!returns::OpenBook(returns::BookOf(returns::Register(), key)).isEmpty()) state.SkipWithError("not opened");
        w.Unload();
        w.Show();
        if (w.fg1->Rows() != kBills + 1) state.SkipWithError("month not read");
    }
}
BENCHMARK(BM_OpenBookAndMonth)->Unit(benchmark::kMillisecond);

// The floor: the book's file opened and the month's bills of both kinds read.
void BM_OpenBookFloor(benchmark::State& state) {
    practice();
    int round = 0;
    for (auto _ : state) {
        const returns::BookKey key{tinOf(0), 2021 + round % kYears};
        ++round;
        sqlite3* db = nullptr;
        sqlite3_open(QFile::encodeName(returns::BookFolder(key) + "/nwForm10DB.mdb").constData(), &db);
        int rows = 0;
        for (const char* table : {"tblPurchase1", "tblSales"}) {
            sqlite3_stmt* st = nullptr;
            sqlite3_prepare_v2(db, QStringLiteral("SELECT * FROM %1 WHERE cCode = '%2' AND cMonth = 'March' ORDER BY BillDate")
                                       .arg(table, tinOf(0)).toUtf8().constData(), -1, &st, nullptr);
            while (sqlite3_step(st) == SQLITE_ROW) ++rows;
            sqlite3_finalize(st);
        }
        sqlite3_close(db);
        benchmark::DoNotOptimize(rows);
    }
}
BENCHMARK(BM_OpenBookFloor)->Unit(benchmark::kMillisecond);

// ---- the backup of every book -------------------------------------------------------------------------

// Timed by hand: making and removing the stick's folder is not part of the copy.
void BM_BackUpEveryBook(benchmark::State& state) {
    practice();
    for (auto _ : state) {
        QTemporaryDir stick;
        int progress = 0;
        QElapsedTimer took;
        took.start();
        const QStringList failed = returns::BackUpPractice(stick.path(), [&](int done, int) {
            progress = done;
            return true;
        });
        state.SetIterationTime(double(took.nsecsElapsed()) / 1e9);
        if (!failed.isEmpty() || progress != kDealers * kYears) state.SkipWithError("books not copied");
    }
}
BENCHMARK(BM_BackUpEveryBook)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1)->Repetitions(3);

// The floor: the same files copied as plain files, and made lasting the same way.
void BM_PlainCopyFloor(benchmark::State& state) {
    practice();
    const std::filesystem::path from = basic::UserPath().toStdString();
    for (auto _ : state) {
        QTemporaryDir stick;
        const std::filesystem::path to = stick.path().toStdString();
        QElapsedTimer took;
        took.start();
        std::filesystem::copy_file(from / "dealers.db", to / "dealers.db");
        std::filesystem::copy(from / "returns", to / "returns", std::filesystem::copy_options::recursive);
        ::sync();
        state.SetIterationTime(double(took.nsecsElapsed()) / 1e9);
    }
}
BENCHMARK(BM_PlainCopyFloor)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1)->Repetitions(3);

}  // namespace

int main(int argc, char** argv) {
    return runOffscreen<QApplication>(argc, argv, [] {
        returns::ResetRegister();
        delete made;
        returns::ReleaseReturnStores();
        returns::rsLookup = returns::rsBills = returns::rsReport = store::Recordset::nothing();
    });
}
