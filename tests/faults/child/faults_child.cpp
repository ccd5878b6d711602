// The program the fault tests kill, lock out and starve, one mode for each thing a user's program does:
//   start <folder>                        makes the return files as the program does at its start, prints
//                                         each box and ends with the program's exit code
//   add <folder> <bills> <round> [spill]  adds March again and again from the round on, printing "adding N"
//                                         before each press and "added N" after it; with "spill" the store
//                                         keeps few pages in memory, so that they reach the file early
//   lock <file> <ms>                      holds a write lock on the file, printing "locked", then lets go
//   book <folder> <tin> <year> <ms>       opens the book of the practice in the user's folder, printing
//                                         "opened" or why not, holds it, then ends
//   backup <folder> <backup folder>       backs the practice up, printing "copied N" after each book
#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/msgbox.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"
#include "returns/practice_copy.h"
#include "returns/return_books.h"
#include "returns/return_schema.h"

#include <QApplication>
#include <QFile>
#include <QStandardPaths>
#include <QThread>
#include <cstdio>
#include <sqlite3.h>

namespace {

void say(const QString& line) {
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

// Every bill of a round has the round in its amount, so that a stored month tells its round.
void fill(forms::FlexGrid* grid, int bills, int round) {
    grid->setRows(bills + 1);
    for (int r = 1; r <= bills; ++r) {
        const QString amount = QStringLiteral("%1.00").arg(round * 10000 + r);
        const QStringList cells = {QString::number(r), "02-03-26", QStringLiteral("Party %1").arg(r), "3207", "B",
                                   "      0", amount, "0.00", "0.00", amount};
        for (int c = 0; c < 10; ++c) grid->setTextMatrix(r, c, cells[c]);
    }
}

int add(const QString& folder, int bills, int round, bool spill) {
    basic::SetAppPath(folder);
    basic::Clock::set(QDate(2026, 3, 15));
    returns::frmNormal w;
    w.Show();
    store::Connection kept = returns::cnReturn;   // one handle for the whole run, with its setting
    if (spill) kept.Execute("PRAGMA cache_size = 8");
    for (;; ++round) {
        fill(w.fg1, bills, round);
        fill(w.fg2, bills / 4, round);
        w.procTotalCal1();
        w.procTotalCal2();
        say(QStringLiteral("adding %1").arg(round));
        w.cmdAdd_Click();
        say(QStringLiteral("added %1").arg(round));
    }
}

int lock(const QString& file, int ms) {
    sqlite3* db = nullptr;
    sqlite3_open(QFile::encodeName(file).constData(), &db);
    if (sqlite3_exec(db, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) != SQLITE_OK) return 2;
    say("locked");
    QThread::msleep(ms);
    return sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK && sqlite3_close(db) == SQLITE_OK ? 0 : 2;
}

int book(const QString& folder, const QString& tin, int year, int ms) {
    basic::SetAppPath(folder);
    const QString failed = returns::OpenBook(returns::BookOf(returns::Register(), {tin, year}));
    say(failed.isEmpty() ? QStringLiteral("opened") : failed);
    QThread::msleep(ms);
    return failed.isEmpty() ? 0 : 1;
}

int backup(const QString& folder, const QString& backupFolder) {
    basic::SetAppPath(folder);
    returns::BackupBegins(backupFolder);
    returns::BackUpPractice(backupFolder, [](int done, int) {
        say(QStringLiteral("copied %1").arg(done));
        return true;
    });
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    forms::MsgBoxRecorder boxes;
    if (args.value(1) == "add") return add(args[2], args.value(3).toInt(), args.value(4).toInt(), args.value(5) == "spill");
    if (args.value(1) == "lock") return lock(args[2], args.value(3).toInt());
    QStandardPaths::setTestModeEnabled(true);   // the settings of the user are not the child's
    if (args.value(1) == "book") return book(args[2], args[3], args.value(4).toInt(), args.value(5).toInt());
    if (args.value(1) == "backup") return backup(args[2], args[3]);
    if (args.value(1) != "start") return 2;
    const bool ready = returns::ReturnStoresReady(args[2]);
    for (const auto& box : boxes.boxes()) say(box.text);
    return ready ? 0 : 1;
}
