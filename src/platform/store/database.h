#pragma once
// Internal to the store: the shared SQLite handle of one file, and prepared statements on it.
#include "platform/store/connection.h"

#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace store::detail {

class Database {
public:
    // The handle of the file, opened (and its key checked) on first use, shared while anyone holds it.
    // The first opener decides whether the handle is read-only.
    static std::shared_ptr<Database> acquire(const QString& path, const QString& key, bool create,
                                             bool readOnly = false);
    // Opens the file on a thread of its own for the acquire that follows; see OpenAhead.
    static void acquireAhead(const QString& path, const QString& key, bool readOnly);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    sqlite3* handle() const { return db_; }
    long execute(const QString& sql);          // one statement, run to its end; rows changed
    int transactionDepth = 0;

private:
    Database() = default;
    static std::shared_ptr<Database> open(const QString& path, const QString& key, bool create, bool readOnly);
    sqlite3* db_ = nullptr;
    QString poolKey_;
};

// One prepared statement; a second statement in the text is an error, as the desktop engine had it.
class Statement {
public:
    Statement(sqlite3* db, const QString& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    sqlite3_stmt* get() const { return stmt_; }
    bool step();                               // true on a row, false at the end; throws on failure

private:
    sqlite3* db_;
    sqlite3_stmt* stmt_ = nullptr;
};

struct ConnectionData {
    QString connectionString;
    int mode = Connection::adModeUnknown;
    std::shared_ptr<Database> database;        // null while closed
};

}  // namespace store::detail
