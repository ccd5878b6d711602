#include "platform/store/sqlite_file.h"

#include "platform/basic/log.h"
#include "platform/store/errors.h"
#include "platform/store/full_text.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace store {

SqliteFile::SqliteFile(const QString& path, const QStringList& schema) : path_(path) {
    madeNow_ = path.isEmpty() || !QFileInfo::exists(path);
    if (open(schema)) return;
    // Kept, not deleted: what it holds may still be read by hand, and nothing of it is lost.
    sqlite3_close_v2(db_);
    db_ = nullptr;
    aside_ = path + QStringLiteral(".damaged-") +
             QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
    for (const QString& tail : {QString(), QStringLiteral("-wal"), QStringLiteral("-shm")})
        if (QFileInfo::exists(path + tail) && !QFile::rename(path + tail, aside_ + tail) && tail.isEmpty())
            throw providerError(QStringLiteral("The damaged file %1 cannot be moved aside.").arg(path));
    madeNow_ = true;
    if (!open(schema)) throw databaseError(db_);
}

SqliteFile::~SqliteFile() { sqlite3_close_v2(db_); }

bool SqliteFile::open(const QStringList& schema) {
    const QByteArray name = path_.isEmpty() ? QByteArray(":memory:") : QFile::encodeName(path_);
    if (sqlite3_open_v2(name.constData(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK) {
        const basic::RuntimeError e = databaseError(db_);
        sqlite3_close_v2(db_);
        db_ = nullptr;
        throw e;
    }
    sqlite3_busy_timeout(db_, 2000);
    registerFullText(db_);
    sqlite3_stmt* check = nullptr;
    bool sound = sqlite3_prepare_v2(db_, "PRAGMA quick_check", -1, &check, nullptr) == SQLITE_OK &&
                 sqlite3_step(check) == SQLITE_ROW &&
                 QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(check, 0))) == "ok";
    sqlite3_finalize(check);
    if (!sound) return false;
    // One file and nothing beside it, whole after every commit: what a backup copies is all there is.
    sqlite3_exec(db_, "PRAGMA journal_mode = DELETE", nullptr, nullptr, nullptr);
    for (const QString& statement : schema) {
        const int rc = sqlite3_exec(db_, statement.toUtf8().constData(), nullptr, nullptr, nullptr);
        if (rc == SQLITE_CORRUPT || rc == SQLITE_NOTADB) return false;
        if (rc != SQLITE_OK) throw databaseError(db_);
    }
    return true;
}

void SqliteFile::exec(const QString& sql) {
    if (sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK) throw databaseError(db_);
}

void SqliteFile::transaction(const std::function<void()>& work) {
    exec(QStringLiteral("BEGIN IMMEDIATE"));
    try {
        work();
        exec(QStringLiteral("COMMIT"));
    } catch (...) {
        sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

qint64 SqliteFile::lastId() const { return sqlite3_last_insert_rowid(db_); }

QString SqliteFile::connectionString() const {
    return QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + path_ + u';';
}

SqliteFile::Statement::Statement(sqlite3* db, const QString& sql) : db_(db) {
    if (sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &stmt_, nullptr) != SQLITE_OK) throw databaseError(db_);
}

SqliteFile::Statement::~Statement() { sqlite3_finalize(stmt_); }

SqliteFile::Statement& SqliteFile::Statement::bind(int at, const QString& text) {
    if (text.isNull()) {
        sqlite3_bind_null(stmt_, at);
    } else {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_bind_text(stmt_, at, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
    }
    return *this;
}

SqliteFile::Statement& SqliteFile::Statement::bind(int at, qint64 number) {
    sqlite3_bind_int64(stmt_, at, number);
    return *this;
}

SqliteFile::Statement& SqliteFile::Statement::bind(int at, const QByteArray& bytes) {
    if (bytes.isNull()) sqlite3_bind_null(stmt_, at);
    else sqlite3_bind_blob64(stmt_, at, bytes.constData(), sqlite3_uint64(bytes.size()), SQLITE_TRANSIENT);
    return *this;
}

bool SqliteFile::Statement::next() {
    const int rc = sqlite3_step(stmt_);
    if (rc == SQLITE_ROW) return true;
    if (rc == SQLITE_DONE) return false;
    const basic::RuntimeError e = databaseError(db_);
    sqlite3_reset(stmt_);
    throw e;
}

void SqliteFile::Statement::run() {
    while (next()) {}
}

void SqliteFile::Statement::reset() {
    sqlite3_reset(stmt_);
    sqlite3_clear_bindings(stmt_);
}

QString SqliteFile::Statement::text(int column) const {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt_, column)),
                             sqlite3_column_bytes(stmt_, column));
}

qint64 SqliteFile::Statement::number(int column) const { return sqlite3_column_int64(stmt_, column); }

QByteArray SqliteFile::Statement::bytes(int column) const {
    const void* data = sqlite3_column_blob(stmt_, column);
    return QByteArray(static_cast<const char*>(data), sqlite3_column_bytes(stmt_, column));
}

bool SqliteFile::Statement::isNull(int column) const { return sqlite3_column_type(stmt_, column) == SQLITE_NULL; }

}  // namespace store
