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

basic::RuntimeError storeError(int number);            // the platform's text for the numbers above
basic::RuntimeError providerError(const QString& description);
basic::RuntimeError databaseError(sqlite3* db);        // the database's own message

}  // namespace store
