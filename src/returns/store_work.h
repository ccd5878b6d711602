#pragma once
// How the return window tells the user that a button's store work failed: one wording per kind of
// fault, the same for every button, naming what was not done, the step that met the fault, and what
// the user can do about it.
#include "platform/basic/runtime_error.h"

#include <QString>

namespace returns {

enum class StoreFault { BillDate, DiskFull, Locked, ReadOnly, Damaged, Refused };

StoreFault faultOf(const basic::RuntimeError& error);

// A button's words for its failure box: "Not saved", "saved", "Add".
struct StoreWords {
    QString title;
    QString done;
    QString button;
    // A statement the store refuses ends as the run-time error it is (Export), not in the failure box.
    bool refusalIsRuntimeError = false;
};

inline const StoreWords kAddWords{QStringLiteral("Not saved"), QStringLiteral("saved"), QStringLiteral("Add")};
inline const StoreWords kDeleteWords{QStringLiteral("Not deleted"), QStringLiteral("deleted"), QStringLiteral("Delete")};
inline const StoreWords kExportWords{QStringLiteral("Not exported"), QStringLiteral("exported"), QStringLiteral("Export"),
                                     true};

// The failure box's text; `step` is what the work was doing when the fault met it, `file` the return file.
QString failureText(const StoreWords& words, const basic::RuntimeError& error, const QString& step, const QString& file);

}  // namespace returns
