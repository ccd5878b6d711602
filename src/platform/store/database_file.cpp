#include "platform/store/database_file.h"

#include "platform/basic/log.h"
#include "platform/store/database.h"
#include "platform/store/errors.h"
#include "platform/store/sql_translation.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <sqlite3.h>
#include <unistd.h>

namespace store {

namespace detail {
int pageLimit = 0;
}

namespace {

// A raw handle, closed at the end of its scope.
struct Handle {
    sqlite3* db = nullptr;
    explicit Handle(sqlite3* opened) : db(opened) {}
    ~Handle() { sqlite3_close_v2(db); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    void exec(const char* sql) {
        if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK) throw databaseError(db);
    }
    // Closing writes nothing more; it is checked all the same, so that no failure passes unseen.
    void close() {
        if (sqlite3_close(db) != SQLITE_OK) throw databaseError(db);
        db = nullptr;
    }
};

QString temporaryName(const QString& path) { return path + QStringLiteral(".new"); }
QString journalOf(const QString& path) { return path + QStringLiteral("-journal"); }

void removeWithJournal(const QString& path) {
    QFile::remove(path);
    QFile::remove(journalOf(path));
}

QString firstRow(sqlite3* db, const char* sql) {
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &st, nullptr) != SQLITE_OK) throw databaseError(db);
    QString text;
    const int rc = sqlite3_step(st);
    if (rc == SQLITE_ROW) text = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    if (rc != SQLITE_ROW && rc != SQLITE_DONE) throw databaseError(db);
    return text;
}

// The temporary file takes the place of `path`, and the folder's entry is made lasting (or left to the
// caller, who makes a whole set lasting at once).
void putInPlace(const QString& temporary, const QString& path, bool lasting = true) {
    if (std::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(path).constData()) != 0)
        throw storeError(kPermissionDenied);
    if (!lasting) return;
    const int folder = ::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(), O_RDONLY);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
}

// Before the old file goes, what a stopped transaction left beside it is rolled back into it (the
// first read does that); a journal that cannot be played into its own file is of no use to anyone and
// would be played into the copy. A file another program is writing is not replaced.
void settleJournal(const QString& path) {
    if (!QFileInfo::exists(path)) {
        QFile::remove(journalOf(path));
        return;
    }
    try {
        Handle old(detail::openHandle(path, QString(), SQLITE_OPEN_READWRITE));
    } catch (const basic::RuntimeError& e) {
        if (e.description() == QLatin1String(sqlite3_errstr(SQLITE_BUSY))) throw;
        qCDebug(lcStore).noquote() << "the journal of" << path << "is dropped unplayed:" << e.description();
    }
    QFile::remove(journalOf(path));
}

}  // namespace

void setPageLimit(int pages) { detail::pageLimit = pages; }

void BuildDatabaseFile(const QString& path, const QStringList& statements) {
    const QString temporary = temporaryName(path);
    removeWithJournal(temporary);
    try {
        Handle file(detail::openHandle(temporary, QString(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE));
        file.exec("BEGIN");
        for (const QString& sql : statements) file.exec(translateSql(sql).sql.toUtf8().constData());
        file.exec("COMMIT");
        file.close();
        putInPlace(temporary, path);
    } catch (...) {
        removeWithJournal(temporary);
        throw;
    }
}

namespace {

// One copy of CopyDatabaseFile. When `lasting` is false the copy is written without forcing it to the
// disk, and the caller makes a whole set of copies lasting at once.
void copyDatabase(const QString& from, const QString& to, bool lasting) {
    if (!QFileInfo(from).isFile()) throw storeError(kFileNotFound);
    if (!QFileInfo(to).dir().exists()) throw storeError(kPathNotFound);
    const QString temporary = temporaryName(to);
    removeWithJournal(temporary);
    try {
        // Opened for writing where it may be, so that a stopped transaction in it is rolled back; a
        // backup on a medium that cannot be written is read as it is.
        sqlite3* opened = nullptr;
        try {
            opened = detail::openHandle(from, QString(), SQLITE_OPEN_READWRITE);
        } catch (const basic::RuntimeError& e) {
            qCDebug(lcStore).noquote() << from << "is read as it is:" << e.description();
            opened = detail::openHandle(from, QString(), SQLITE_OPEN_READONLY);
        }
        Handle source(opened);
        Handle copy(detail::openHandle(temporary, QString(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE));
        // The temporary file is removed whole if anything stops here, so it needs no journal of its own.
        if (!lasting) copy.exec("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
        sqlite3_backup* backup = sqlite3_backup_init(copy.db, "main", source.db, "main");
        if (!backup) throw databaseError(copy.db);
        const int stepped = sqlite3_backup_step(backup, -1);
        sqlite3_backup_finish(backup);
        if (stepped != SQLITE_DONE) throw providerError(QString::fromUtf8(sqlite3_errstr(stepped)));
        const QString check = firstRow(copy.db, "PRAGMA integrity_check");
        if (check != QLatin1String("ok")) throw providerError(QString::fromUtf8(sqlite3_errstr(SQLITE_CORRUPT)));
        copy.close();
        source.close();
        settleJournal(to);
        putInPlace(temporary, to, lasting);
    } catch (...) {
        removeWithJournal(temporary);
        throw;
    }
    detail::Database::reopenAll(to);
}

// Everything written to the file systems of these files reaches the disk.
void syncFileSystems(const QStringList& files) {
    QSet<dev_t> done;
    for (const QString& file : files) {
        struct stat info {};
        if (::stat(QFile::encodeName(file).constData(), &info) != 0 || done.contains(info.st_dev)) continue;
        done.insert(info.st_dev);
        const int fd = ::open(QFile::encodeName(file).constData(), O_RDONLY);
        if (fd < 0) continue;
        ::syncfs(fd);
        ::close(fd);
    }
}

}  // namespace

void CopyDatabaseFile(const QString& from, const QString& to) { copyDatabase(from, to, true); }

std::vector<DatabaseCopyFailure> CopyDatabaseFiles(const std::vector<DatabaseCopy>& copies,
                                                   const std::function<bool(int)>& progress) {
    std::vector<DatabaseCopyFailure> failures;
    QStringList copied;
    for (int i = 0; i < int(copies.size()); ++i) {
        const basic::RuntimeError e = basic::resume([&] { copyDatabase(copies[size_t(i)].from, copies[size_t(i)].to, false); });
        if (e.number() != 0) failures.push_back({i, e});
        else if (copied.isEmpty() || QFileInfo(copied.back()).path() != QFileInfo(copies[size_t(i)].to).path())
            copied << copies[size_t(i)].to;
        if (progress && !progress(i + 1)) break;
    }
    syncFileSystems(copied);
    return failures;
}

QString CheckDatabaseFile(const QString& path) {
    try {
        Handle file(detail::openHandle(path, QString(), SQLITE_OPEN_READWRITE));
        return firstRow(file.db, "PRAGMA integrity_check");
    } catch (const basic::RuntimeError& e) {
        return e.description();
    }
}

}  // namespace store
