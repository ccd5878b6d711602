#pragma once
// Database files handled whole: made, copied and checked so that a file is complete or absent, never
// half written, whatever stops the program on the way. A file is built beside its place under the
// name "<name>.new" and renamed into place only when it is complete and checked; a stopped attempt
// leaves at most that file, which the next attempt removes.
#include "platform/basic/runtime_error.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace store {

// Makes the database file `path` with the statements, run in one transaction.
void BuildDatabaseFile(const QString& path, const QStringList& statements);

// Puts a copy of the database `from` in place of `to` through the database's own online backup, so
// the copy holds the last committed state of `from`: what a program stopped in the middle of a
// transaction left in it is rolled back first. A journal such a stop left beside `to` is rolled back
// into the old file before the copy replaces it, so nothing stale is ever played into the copy.
// Connections of this process to `to` read the copy from then on.
// Raises 53 "File not found" for a missing `from`, 76 "Path not found" for a missing folder of `to`,
// 70 "Permission denied" when the copy cannot be put in place, else the database's own error (a full
// disk, a damaged file, a lock that does not go).
void CopyDatabaseFile(const QString& from, const QString& to);

// Many database files copied as CopyDatabaseFile copies one, for a whole set of files at once: the
// copies are not forced to the disk one by one but all together at the end, which for thousands of
// small files is the difference between minutes and seconds. A copy that fails is reported and the
// others go on; progress(done) is called after each copy, and its false stops before the next.
struct DatabaseCopy {
    QString from, to;
};
struct DatabaseCopyFailure {
    int index;                     // into the copies
    basic::RuntimeError error;
};
std::vector<DatabaseCopyFailure> CopyDatabaseFiles(const std::vector<DatabaseCopy>& copies,
                                                   const std::function<bool(int done)>& progress = {});

// "ok", or what the database's integrity check (or the opening of the file) finds wrong.
QString CheckDatabaseFile(const QString& path);

// Tests stand a full disk in with this where they may not mount a small file system: every handle
// opened from now on may hold at most `pages` pages, and a write beyond fails as on a full disk.
// 0 lifts the limit.
void setPageLimit(int pages);

}  // namespace store
