#pragma once
// The rows of a statement on a database file, fields joined by "|", read as any program opening the file
// would read them, beside the system's own store: with `key`, as SQLCipher reads a keyed file, after
// `prepare` has set the handle up. A statement that fails gives SQLite's message as its one row.
#include <QFile>
#include <sqlite3.h>

inline QStringList query(const QString& file, const QString& sql, const QString& key = {},
                         void (*prepare)(sqlite3*) = nullptr) {
    sqlite3* db = nullptr;
    sqlite3_stmt* st = nullptr;
    sqlite3_open(QFile::encodeName(file).constData(), &db);
    if (!key.isEmpty()) sqlite3_exec(db, ("PRAGMA key = '" + key + "'").toUtf8().constData(), nullptr, nullptr, nullptr);
    if (prepare) prepare(db);
    QStringList rows;
    if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &st, nullptr) != SQLITE_OK) rows << sqlite3_errmsg(db);
    while (st && sqlite3_step(st) == SQLITE_ROW) {
        QStringList fields;
        for (int f = 0; f < sqlite3_column_count(st); ++f) fields << (const char*)sqlite3_column_text(st, f);
        rows << fields.join('|');
    }
    sqlite3_finalize(st);
    sqlite3_close(db);
    return rows;
}
