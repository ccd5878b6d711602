#include "library_files.h"

#include "cli.h"
#include "platform/store/full_text.h"
#include "support/qt_app.h"

#include <QDirIterator>

#include <sqlite3.h>
#include <map>
#include <memory>
#include <stdexcept>

namespace libtest {

int build(const QStringList& arguments, QString* err)
{
    ensureApp();  // the builder lays documents out to read their text
    QString messages;
    QTextStream stream(&messages);
    const int code = libbuilder::run(arguments, stream);
    stream.flush();
    if (err)
        *err = messages;
    return code;
}

QString sampleLibrary()
{
    static QTemporaryDir dir;
    QString err;
    if (!QFile::exists(dir.filePath(kFile1.file)) && build({"--source", kSource, "--out", dir.path()}, &err) != 0)
        ADD_FAILURE() << err.toStdString();
    return dir.path();
}

namespace {

// Opens the file read-only with its key (when given) and runs one statement; throws with SQLite's message.
struct Db {
    sqlite3* db = nullptr;
    Db(const QString& path, const QString& password)
    {
        sqlite3_open_v2(QFile::encodeName(path).constData(), &db, SQLITE_OPEN_READONLY, nullptr);
        if (!password.isEmpty())
            run("PRAGMA key = '" + QString(password).replace('\'', "''") + "'", {});
        store::registerFullText(db);
    }
    ~Db() { sqlite3_close_v2(db); }
    std::vector<QVariantList> run(const QString& sql, const QVariantList& parameters)
    {
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &st, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(db));
        for (int i = 0; i < parameters.size(); ++i)
            sqlite3_bind_text(st, i + 1, parameters[i].toString().toUtf8().constData(), -1, SQLITE_TRANSIENT);
        std::vector<QVariantList> rows;
        int step;
        while ((step = sqlite3_step(st)) == SQLITE_ROW) {
            QVariantList row;
            for (int c = 0; c < sqlite3_column_count(st); ++c)
                row << QByteArray(static_cast<const char*>(sqlite3_column_blob(st, c)), sqlite3_column_bytes(st, c));
            rows.push_back(row);
        }
        sqlite3_finalize(st);
        if (step != SQLITE_DONE)
            throw std::runtime_error(sqlite3_errmsg(db));
        return rows;
    }
};

}  // namespace

std::vector<QVariantList> query(const QString& dir, const LibraryFileName& file, const QString& sql,
                                const QVariantList& parameters)
{
    // Deriving the key costs tens of milliseconds, so each file stays open for the whole program.
    static std::map<QString, std::unique_ptr<Db>> open;
    const QString path = QDir(dir).filePath(file.file);
    auto& db = open[path];
    if (!db)
        db = std::make_unique<Db>(path, file.password);
    return db->run(sql, parameters);
}

void copyTree(const QString& from, const QString& to)
{
    for (QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString source = it.next(), target = to + source.mid(from.size());
        QDir().mkpath(QFileInfo(target).path());
        if (!QFile::copy(source, target))
            ADD_FAILURE() << target.toStdString();
    }
}

bool readable(const QString& path, const QString& password)
{
    try {
        return !Db(path, password).run("SELECT count(*) FROM sqlite_master", {}).empty();
    } catch (const std::runtime_error&) {
        return false;
    }
}

}  // namespace libtest
