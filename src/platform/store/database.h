#pragma once
// Internal to the store: the shared SQLite handle of one file, and prepared statements on it.
#include "platform/store/connection.h"

#include <QString>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace store::detail {

// Pages a handle opened from now on may grow to; 0 for no limit (see setPageLimit).
extern int pageLimit;

// A handle on the file, with the busy wait in force before its first statement and the page limit
// of setPageLimit; the first read is made here, so that a wrong key or a damaged file fails at once.
// Throws the database's error; nothing is left open then. With passLocks, another program's lock
// neither stops nor delays the opening: that first read does not wait, and a file it finds locked is
// left to the statements that follow, which wait for it as always.
sqlite3* openHandle(const QString& path, const QString& key, int flags, bool passLocks = false);

class Database {
public:
    // The handle of the file, opened (and its key checked) on first use, shared while anyone holds it.
    // The first opener decides whether the handle is read-only.
    static std::shared_ptr<Database> acquire(const QString& path, const QString& key, bool create,
                                             bool readOnly = false);
    // Opens the file on a thread of its own for the acquire that follows; see OpenAhead.
    static void acquireAhead(const QString& path, const QString& key, bool readOnly);
    // Every shared handle of the file opened anew: after the file was replaced under its name, they
    // would still read the file that was there before.
    static void reopenAll(const QString& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    sqlite3* handle() const { return db_; }
    long execute(const QString& sql);          // one statement, run to its end; rows changed
    void confirmTransaction() const;           // raises lastFailure when the database ended our transaction
    int transactionDepth = 0;
    QString lastFailure;                       // what the last failing statement said

private:
    Database() = default;
    static std::shared_ptr<Database> open(const QString& path, const QString& key, bool create, bool readOnly);
    sqlite3* db_ = nullptr;
    QString path_, key_;
    bool readOnly_ = false;
    QString poolKey_;
};

// One prepared statement; a second statement in the text is an error, as the desktop engine had it.
// Inside a transaction that the database has already rolled back by itself (a full disk, an I/O
// error), no statement is prepared: it would run on its own and be kept, out of the transaction.
class Statement {
public:
    // A statement the caller tries and may do without (`tried`) leaves no warning when it is refused.
    Statement(Database& db, const QString& sql, bool tried = false);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    sqlite3_stmt* get() const { return stmt_; }
    bool step();                               // true on a row, false at the end; throws on failure

private:
    Database& db_;
    sqlite3_stmt* stmt_ = nullptr;
};

struct ConnectionData {
    QString connectionString;
    int mode = Connection::adModeUnknown;
    std::shared_ptr<Database> database;        // null while closed
};

}  // namespace store::detail
