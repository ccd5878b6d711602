#pragma once
// Shared by the builder's tests: building a library into a temporary folder and reading it back
// through the SQLCipher C API.
#include "platform/store/full_text.h"
#include "support/printers.h"
#include "support/sqlite_rows.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace libtest {

inline const QString kSource = QStringLiteral(VORLAN_SOURCE_DIR "/data/library");

struct LibraryFileName {
    QString file, password;
};
inline const LibraryFileName kFile1{"0909214SD01.mdb", "bergamot"}, kFile2{"1309214SD02.mdb", "lantern"},
    kFile3{"1509214SD03.mdb", "marbled"};

// Runs the builder in-process; err receives its messages.
int build(const QStringList& arguments, QString* err = nullptr);

// The sample library, built once for the whole test program.
QString sampleLibrary();

// The rows of a statement on a file of the folder, opened with its key, fields joined by "|".
inline QStringList query(const QString& dir, const LibraryFileName& file, const QString& sql) {
    return ::query(QDir(dir).filePath(file.file), sql, file.password, store::registerFullText);
}

// True when the file can be read with that key (empty: no key at all).
inline bool readable(const QString& path, const QString& password) {
    return ::query(path, "SELECT 'read' FROM sqlite_master LIMIT 1", password) == QStringList{"read"};
}

// Copies every file under `from` to the same place under `to`.
void copyTree(const QString& from, const QString& to);

}  // namespace libtest
