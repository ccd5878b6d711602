#include "library_files.h"

#include "cli.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <map>
#include <stdexcept>

namespace libtest {

int build(const QStringList& arguments, QString* err)
{
    QString messages;
    QTextStream stream(&messages);
    const int code = libbuilder::run(arguments, stream);
    stream.flush();
    if (err)
        *err = messages;
    return code;
}

namespace {

QString builtOnce(const QStringList& what, QTemporaryDir& dir)
{
    if (!QFile::exists(dir.filePath(kFile1.file))) {
        QString err;
        if (build(what + QStringList{"--out", dir.path()}, &err) != 0)
            ADD_FAILURE() << err.toStdString();
    }
    return dir.path();
}

}  // namespace

QString sampleLibrary()
{
    static QTemporaryDir dir;
    return builtOnce({"--source", kSource}, dir);
}

QString syntheticLibrary()
{
    static QTemporaryDir dir;
    return builtOnce({"--synthetic", "40"}, dir);
}

namespace {

// Opens the file and sets its key; on failure throws with SQLite's message.
sqlite3* open(const QString& path, const QString& password)
{
    sqlite3* db = nullptr;
    auto fail = [&](const char* what) {
        const std::string message = std::string(what) + ": " + sqlite3_errmsg(db);
        sqlite3_close_v2(db);
        throw std::runtime_error(message);
    };
    if (sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
        fail("open");
    if (!password.isEmpty()) {
        QString escaped = password;
        const QByteArray pragma = ("PRAGMA key = '" + escaped.replace('\'', "''") + "'").toUtf8();
        if (sqlite3_exec(db, pragma.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            fail("key");
    }
    return db;
}

std::vector<QVariantList> run(sqlite3* db, const QString& sql, const QVariantList& parameters)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        throw std::runtime_error(std::string("prepare: ") + sqlite3_errmsg(db));
    for (int i = 0; i < parameters.size(); ++i) {
        const QByteArray text = parameters[i].toString().toUtf8();
        sqlite3_bind_text(statement, i + 1, text.constData(), int(text.size()), SQLITE_TRANSIENT);
    }
    std::vector<QVariantList> rows;
    int step;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
        QVariantList row;
        for (int c = 0; c < sqlite3_column_count(statement); ++c) {
            // Null, a document's bytes, or anything else read as text.
            const int type = sqlite3_column_type(statement, c);
            const char* data = static_cast<const char*>(
                type == SQLITE_BLOB ? sqlite3_column_blob(statement, c) : (const void*)sqlite3_column_text(statement, c));
            const QByteArray bytes(data, sqlite3_column_bytes(statement, c));
            row << (type == SQLITE_NULL ? QVariant() : type == SQLITE_BLOB ? QVariant(bytes) : QVariant(QString::fromUtf8(bytes)));
        }
        rows.push_back(row);
    }
    sqlite3_finalize(statement);
    if (step != SQLITE_DONE)
        throw std::runtime_error(std::string("step: ") + sqlite3_errmsg(db));
    return rows;
}

}  // namespace

std::vector<QVariantList> query(const QString& path, const QString& password, const QString& sql,
                                const QVariantList& parameters)
{
    // Deriving the key costs tens of milliseconds, so each file stays open for the whole program.
    static std::map<QString, sqlite3*> open_;
    sqlite3*& db = open_[path + '\n' + password];
    if (!db)
        db = open(path, password);
    return run(db, sql, parameters);
}

bool readable(const QString& path, const QString& password)
{
    sqlite3* db = nullptr;
    try {
        db = open(path, password);
        const bool ok = !run(db, "SELECT count(*) FROM sqlite_master", {}).empty();
        sqlite3_close_v2(db);
        return ok;
    } catch (const std::runtime_error&) {
        sqlite3_close_v2(db);
        return false;
    }
}

}  // namespace libtest
