#pragma once
// Shared by the builder's tests: building a library into a temporary folder and reading it back
// through the SQLCipher C API.
#include "support/printers.h"

#include <QString>
#include <QStringList>
#include <QVariant>

namespace libtest {

inline const QString kSource = QStringLiteral(VORLAN_SOURCE_DIR "/data/library");

struct LibraryFileName {
    QString file;
    QString password;
};
inline void PrintTo(const LibraryFileName& f, std::ostream* os) { *os << f.file.toStdString(); }

inline const LibraryFileName kFile1{"0909214SD01.mdb", "bergamot"};
inline const LibraryFileName kFile2{"1309214SD02.mdb", "lantern"};
inline const LibraryFileName kFile3{"1509214SD03.mdb", "marbled"};

// Runs the builder in-process; err receives its messages.
int build(const QStringList& arguments, QString* err = nullptr);

// The sample library and a small generated one, each built once for the whole test program.
QString sampleLibrary();
QString syntheticLibrary();

// Every row of a query, each row's columns as QVariant (Null as an invalid QVariant). The file is
// opened with the key when the password is not empty. Throws std::runtime_error with SQLite's message.
std::vector<QVariantList> query(const QString& path, const QString& password, const QString& sql,
                                const QVariantList& parameters = {});

// True when a query on the file succeeds with that key (empty: no key at all).
bool readable(const QString& path, const QString& password);

}  // namespace libtest
