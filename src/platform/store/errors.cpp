#include "platform/store/errors.h"

#include "platform/basic/log.h"

#include <sqlite3.h>

namespace store {

static const QString kSource = QStringLiteral("Vorlan store");

basic::RuntimeError storeError(int number) {
    QString text;
    switch (number) {
    case kNoCurrentRecord:
        text = QStringLiteral("Either BOF or EOF is True, or the current record has been deleted. Requested "
                              "operation requires a current record.");
        break;
    case kItemNotFound:
        text = QStringLiteral("Item cannot be found in the collection corresponding to the requested name or "
                              "ordinal.");
        break;
    case kObjectClosed: text = QStringLiteral("Operation is not allowed when the object is closed."); break;
    case kObjectOpen: text = QStringLiteral("Operation is not allowed when the object is open."); break;
    case kBadArguments:
        text = QStringLiteral("Arguments are of the wrong type, are out of acceptable range, or are in conflict "
                              "with one another.");
        break;
    case kNotUpdatable:
        text = QStringLiteral("Current Recordset does not support updating. This may be a limitation of the "
                              "provider, or of the selected locktype.");
        break;
    case kConnectionUnusable:
        text = QStringLiteral("The connection cannot be used to perform this operation. It is either closed or "
                              "invalid in this context.");
        break;
    case kObjectNotSet: text = QStringLiteral("Object variable or With block variable not set"); break;
    case kFileNotFound: text = QStringLiteral("File not found"); break;
    case kPermissionDenied: text = QStringLiteral("Permission denied"); break;
    case kPathNotFound: text = QStringLiteral("Path not found"); break;
    default: break;
    }
    return basic::RuntimeError(number, text, kSource);
}

// Every fault of a file or a statement passes here, so this is where the log hears of it.
basic::RuntimeError providerError(const QString& description, bool logged) {
    if (logged) qCWarning(lcStore).noquote() << "store fault:" << description;
    return basic::RuntimeError(kProviderError, description, kSource);
}

basic::RuntimeError databaseError(sqlite3* db, const QString& statement) {
    const QString message = QString::fromUtf8(sqlite3_errmsg(db));
    const char* file = sqlite3_db_filename(db, "main");
    qCWarning(lcStore).noquote() << "store fault:" << message << "in" << QString::fromUtf8(file ? file : "")
                                 << (statement.isEmpty() ? QString() : QStringLiteral("running ") + statement);
    return basic::RuntimeError(kProviderError, message, kSource);
}

// The faults are told by their texts, SQLite's own (sqlite3_errstr) and the platform's "Disk full"
// (61) and "Permission denied" (70).
bool isDiskFull(const basic::RuntimeError& e) {
    return e.number() == 61 || e.description() == QLatin1String(sqlite3_errstr(SQLITE_FULL));
}

bool isLocked(const basic::RuntimeError& e) {
    return e.description() == QLatin1String(sqlite3_errstr(SQLITE_BUSY)) ||
           e.description() == QLatin1String(sqlite3_errstr(SQLITE_LOCKED));
}

bool isReadOnly(const basic::RuntimeError& e) {
    return e.number() == kPermissionDenied || e.description() == QLatin1String(sqlite3_errstr(SQLITE_READONLY));
}

bool isDamaged(const basic::RuntimeError& e) {
    return e.description() == QLatin1String(sqlite3_errstr(SQLITE_CORRUPT)) ||
           e.description() == QLatin1String(sqlite3_errstr(SQLITE_NOTADB));
}

}  // namespace store
