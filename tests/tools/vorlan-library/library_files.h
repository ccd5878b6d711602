#pragma once
// Shared by the builder's tests: building a library into a temporary folder and reading it back
// through the SQLCipher C API.
#include "support/printers.h"

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

// Every row of a query on a file of the folder, each field as its bytes; throws std::runtime_error.
std::vector<QVariantList> query(const QString& dir, const LibraryFileName& file, const QString& sql,
                                const QVariantList& parameters = {});

// True when a query on the file succeeds with that key (empty: no key at all).
bool readable(const QString& path, const QString& password);

// Copies every file under `from` to the same place under `to`.
void copyTree(const QString& from, const QString& to);

}  // namespace libtest
