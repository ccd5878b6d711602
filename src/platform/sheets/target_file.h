#pragma once
// A file written under a temporary name in its target's folder, then flushed to disk and renamed over
// the target: a failure half-way leaves the target as it was and, once this object is gone, nothing else.
#include "platform/basic/runtime_error.h"

#include <QString>

namespace sheets {

class TargetFile {
public:
    // Makes the (empty) temporary file; throws WriteError when the folder cannot take it.
    explicit TargetFile(const QString& path);
    ~TargetFile();   // removes the temporary file unless committed
    TargetFile(const TargetFile&) = delete;
    TargetFile& operator=(const TargetFile&) = delete;

    const QString& path() const { return path_; }
    const QString& temporaryPath() const { return temporary_; }
    // Flushes the temporary file to disk and renames it over the target; throws WriteError.
    void commit();
    // The error for a write that failed with errno `error` (0: unknown; the free space decides).
    [[noreturn]] void fail(int error) const;

private:
    QString path_;
    QString temporary_;
    bool committed_ = false;
};

// 61 a full disk, 70 a folder that may not be written, 76 a folder that is not there, 75 the rest;
// the description names the file.
basic::RuntimeError WriteError(const QString& path, int error);

// errno after a library's write failed: kept when it tells of the disk or the folder, else 0, since a
// library may leave a stale value from a call that did not matter.
int LibraryWriteErrno();

// Any other fault of a writer (a sheet too large, a bad name): error 75 naming the file.
basic::RuntimeError SheetError(const QString& path, const QString& why);

}  // namespace sheets
