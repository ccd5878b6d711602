#pragma once
// The run-time errors the store raises, with the platform's numbers and texts. Source "Vorlan store".
#include "platform/basic/runtime_error.h"

struct sqlite3;

namespace store {

inline constexpr int kProviderError = -2147467259;     // a statement or an open that the database refused
inline constexpr int kNoCurrentRecord = 3021;
inline constexpr int kItemNotFound = 3265;
inline constexpr int kObjectClosed = 3704;
inline constexpr int kObjectOpen = 3705;
inline constexpr int kBadArguments = 3001;             // among them a filter that cannot be read
inline constexpr int kNotUpdatable = 3251;
inline constexpr int kConnectionUnusable = 3709;      // a recordset opened on a closed connection
inline constexpr int kObjectNotSet = 91;               // a handle that holds nothing
inline constexpr int kFileNotFound = 53;               // the file-level errors of whole-file work
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathNotFound = 76;

basic::RuntimeError storeError(int number);            // the platform's text for the numbers above
basic::RuntimeError providerError(const QString& description, bool logged = true);
// The database's own message; `statement` is what was running, for the log.
basic::RuntimeError databaseError(sqlite3* db, const QString& statement = QString());

// The disk or the drive was full: the database said so, or a file could not be written for want of space.
bool isDiskFull(const basic::RuntimeError& e);
// Another connection held the file past the busy wait.
bool isLocked(const basic::RuntimeError& e);
// The file or its folder may not be written.
bool isReadOnly(const basic::RuntimeError& e);
// The file is not a database, or its pages do not hold together.
bool isDamaged(const basic::RuntimeError& e);

}  // namespace store
