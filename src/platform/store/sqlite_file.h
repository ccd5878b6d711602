#pragma once
// A SQLite file of the program's own making in the user's folder (the reader's file, the user's own
// library): plain SQLite through its C API, with the full-text tokenizer registered. One file with no
// companions: a search on a read-only handle of another thread holds it for the milliseconds of a query,
// and a write waits that long at most.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>

struct sqlite3;
struct sqlite3_stmt;

namespace store {

class SqliteFile {
public:
    // Opens `path`, making it when missing, and runs `schema` (statements that keep what exists). A file
    // that is not a database or fails its quick check is renamed aside ("<path>.damaged-<yyyyMMdd-hhmmss>")
    // and a fresh one made in its place; aside() names where it went. An empty path is a file in memory.
    // A file that cannot be made at all raises the store's error.
    SqliteFile(const QString& path, const QStringList& schema);
    ~SqliteFile();
    SqliteFile(const SqliteFile&) = delete;
    SqliteFile& operator=(const SqliteFile&) = delete;

    const QString& path() const { return path_; }
    const QString& aside() const { return aside_; }
    bool madeNow() const { return madeNow_; }   // the file did not exist, or was damaged, before this open

    class Statement {
    public:
        Statement(sqlite3* db, const QString& sql);
        ~Statement();
        Statement(const Statement&) = delete;
        Statement& operator=(const Statement&) = delete;
        // Parameters from 1. A null QString or QByteArray binds Null.
        Statement& bind(int at, const QString& text);
        Statement& bind(int at, qint64 number);
        Statement& bind(int at, const QByteArray& bytes);
        bool next();              // true on a row; raises the database's error
        void run();               // to the end, rows ignored
        void reset();             // ready to run again, with new parameters
        QString text(int column) const;
        qint64 number(int column) const;
        QByteArray bytes(int column) const;
        bool isNull(int column) const;

    private:
        sqlite3* db_;
        sqlite3_stmt* stmt_ = nullptr;
    };

    void exec(const QString& sql);
    // A statement to bind and step; raises the database's error for a statement it cannot read.
    Statement prepare(const QString& sql) const { return Statement(db_, sql); }
    // One transaction around `work`: all of it lands, or, when it raises, none of it.
    void transaction(const std::function<void()>& work);
    qint64 lastId() const;
    sqlite3* handle() const { return db_; }
    // The connection string a read-only search (TextIndex) or a data control opens the file by.
    QString connectionString() const;

private:
    bool open(const QStringList& schema);       // false when the file is damaged
    sqlite3* db_ = nullptr;
    QString path_, aside_;
    bool madeNow_ = false;
};

}  // namespace store
