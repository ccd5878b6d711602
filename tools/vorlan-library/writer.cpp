#include "writer.h"

#include "schema.h"
#include "text_index.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <filesystem>
#include <sqlite3.h>

namespace libbuilder {

namespace {

// One open database; closed on every way out.
class Database {
public:
    explicit Database(const QString& path)
    {
        if (sqlite3_open_v2(QFile::encodeName(path).constData(), &db_,
                            SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK)
            throw BuildError{path + ": cannot be created: " + QString::fromUtf8(sqlite3_errmsg(db_))};
    }
    ~Database() { sqlite3_close_v2(db_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    void exec(const QString& sql, const QString& where)
    {
        char* message = nullptr;
        if (sqlite3_exec(db_, sql.toUtf8().constData(), nullptr, nullptr, &message) != SQLITE_OK) {
            const QString text = QString::fromUtf8(message ? message : sqlite3_errmsg(db_));
            sqlite3_free(message);
            throw BuildError{where + ": " + text};
        }
    }

    sqlite3* handle() const { return db_; }

private:
    sqlite3* db_ = nullptr;
};

QString quoted(const QString& text)
{
    QString t = text;
    return '\'' + t.replace('\'', "''") + '\'';
}

void bind(sqlite3_stmt* statement, int index, const Value& value)
{
    if (const auto* n = std::get_if<qint64>(&value)) {
        sqlite3_bind_int64(statement, index, *n);
    } else if (const auto* d = std::get_if<double>(&value)) {
        sqlite3_bind_double(statement, index, *d);
    } else if (const auto* s = std::get_if<QString>(&value)) {
        const QByteArray utf8 = s->toUtf8();
        sqlite3_bind_text(statement, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
    } else if (const auto* b = std::get_if<QByteArray>(&value)) {
        sqlite3_bind_blob(statement, index, b->constData(), int(b->size()), SQLITE_TRANSIENT);
    } else {
        sqlite3_bind_null(statement, index);
    }
}

void insertRows(Database& db, const TableRows& rows, const QString& path, std::vector<qint64>& rowIds)
{
    QStringList marks;
    for (qsizetype i = 0; i < rows.columns.size(); ++i)
        marks << "?";
    const QString sql = "INSERT INTO " + rows.table + " (" + rows.columns.join(", ") + ") VALUES (" +
                        marks.join(", ") + ")";
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db.handle(), sql.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        throw BuildError{path + ": " + QString::fromUtf8(sqlite3_errmsg(db.handle()))};
    for (const Row& row : rows.rows) {
        for (size_t c = 0; c < row.values.size(); ++c)
            bind(statement, int(c) + 1, row.values[c]);
        if (sqlite3_step(statement) != SQLITE_DONE) {
            const QString message = QString::fromUtf8(sqlite3_errmsg(db.handle()));
            sqlite3_finalize(statement);
            throw BuildError{row.origin + ": " + message};
        }
        rowIds.push_back(sqlite3_last_insert_rowid(db.handle()));
        sqlite3_reset(statement);
        sqlite3_clear_bindings(statement);
    }
    sqlite3_finalize(statement);
}

void openKeyed(Database& db, const QString& path, const LibraryFile& file)
{
    // The key must come before anything touches the file, or the file is written in clear.
    db.exec("PRAGMA key = " + quoted(file.password), path);
    // A half-written temporary file is thrown away, so it needs no journal on disk.
    db.exec("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF", path);
    // Merging the text index into one segment frees the pages of the many it was written in; the file
    // gives them back instead of carrying them (a quarter of its size at 100 MB of text).
    db.exec("PRAGMA auto_vacuum = FULL", path);
}

void writeFile(const QString& path, const LibraryFile& file, const std::vector<TableRows>& tables, RowIds& rowIds)
{
    Database db(path);
    openKeyed(db, path, file);
    for (const Table& table : file.tables) {
        db.exec(createStatement(table), path);
        for (const QString& index : indexStatements(table))
            db.exec(index, path);
    }
    db.exec("BEGIN", path);
    for (const TableRows& rows : tables)
        if (file.tables.end() != std::find_if(file.tables.begin(), file.tables.end(),
                                              [&](const Table& t) { return t.name == rows.table; }))
            insertRows(db, rows, path, rowIds[rows.table]);
    db.exec("COMMIT", path);
}

}  // namespace

void writeLibrary(const std::vector<TableRows>& tables, const QString& outDir, bool withText)
{
    const std::vector<DocumentText> texts = withText ? readDocumentTexts(tables) : std::vector<DocumentText>();
    if (!QDir().mkpath(outDir))
        throw BuildError{outDir + ": cannot be created"};
    const QDir dir(outDir);
    QStringList temporaries;
    try {
        RowIds rowIds;
        for (const LibraryFile& file : libraryFiles()) {
            const QString temporary = dir.filePath(file.fileName + ".building");
            QFile::remove(temporary);  // left over from a build that was killed
            temporaries << temporary;
            writeFile(temporary, file, tables, rowIds);
        }
        // The index names rows of all three files, so it is written when all of them are.
        if (withText) {
            Database db(temporaries[0]);
            openKeyed(db, temporaries[0], libraryFiles()[0]);
            writeTextIndex(db.handle(), texts, rowIds, temporaries[0]);
        }
    } catch (const BuildError&) {
        for (const QString& temporary : temporaries)
            QFile::remove(temporary);
        throw;
    }
    // rename() replaces the old file in one step: a reader sees the old library or the new one.
    for (qsizetype i = 0; i < temporaries.size(); ++i) {
        std::error_code error;
        std::filesystem::rename(QFile::encodeName(temporaries[i]).toStdString(),
                                QFile::encodeName(dir.filePath(libraryFiles()[i].fileName)).toStdString(),
                                error);
        if (error)
            throw BuildError{temporaries[i] + ": cannot be renamed into place: " +
                             QString::fromStdString(error.message())};
    }
}

}  // namespace libbuilder
