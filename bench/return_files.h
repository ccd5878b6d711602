#pragma once
// The return files of a benchmark and the floor it is measured against.
#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/store/connection.h"
#include "returns/return_schema.h"

#include <QDate>
#include <QTemporaryDir>
#include <functional>
#include <initializer_list>
#include <sqlite3.h>

// The return files made in a temporary folder that stands as the program's, on 10 April 2026, and the
// rows `fill` writes into nwForm10DB.mdb in one transaction.
struct ReturnFiles {
    explicit ReturnFiles(const std::function<void(store::Connection&)>& fill) {
        basic::SetAppPath(folder.path());
        basic::Clock::set(QDate(2026, 4, 10));
        returns::CreateReturnStores(folder.path());
        store::Connection cn;
        cn.Open("Driver={Microsoft Access Driver (*.mdb)};Dbq=" + folder.filePath("nwForm10DB.mdb"));
        cn.BeginTrans();
        fill(cn);
        cn.CommitTrans();
        cn.Close();
    }
    QTemporaryDir folder;
};

// The floor of a store read: the statements run straight on SQLite, every column of every row taken out.
// Returns the bytes read.
inline long ReadStraight(sqlite3* db, std::initializer_list<const char*> statements) {
    long cells = 0;
    for (const char* sql : statements) {
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(db, sql, -1, &st, nullptr);
        while (sqlite3_step(st) == SQLITE_ROW)
            for (int c = 0; c < sqlite3_column_count(st); ++c) cells += sqlite3_column_bytes(st, c);
        sqlite3_finalize(st);
    }
    return cells;
}
