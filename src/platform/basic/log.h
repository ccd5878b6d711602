#pragma once
// Where the program tells what it swallowed. One logging category per folder, all off by default and
// written to the standard error only: QT_LOGGING_RULES="vorlan.*=true" turns every one on,
// "vorlan.returns.debug=true" one of them. Debug: an error ignored on purpose; warning: a store fault.
#include "platform/basic/runtime_error.h"

#include <QLoggingCategory>
#include <source_location>

Q_DECLARE_LOGGING_CATEGORY(lcBasic)      // vorlan.basic
Q_DECLARE_LOGGING_CATEGORY(lcStore)      // vorlan.store
Q_DECLARE_LOGGING_CATEGORY(lcForms)      // vorlan.forms
Q_DECLARE_LOGGING_CATEGORY(lcDocuments)  // vorlan.documents
Q_DECLARE_LOGGING_CATEGORY(lcReports)    // vorlan.reports
Q_DECLARE_LOGGING_CATEGORY(lcSystem)     // vorlan.system

// A subsystem's own category, defined in its folder, off by default like the others:
// VORLAN_LOGGING_CATEGORY(lcReturns, "vorlan.returns")
#define VORLAN_LOGGING_CATEGORY(name, text) Q_LOGGING_CATEGORY(name, text, QtCriticalMsg)

// ignore() below, bound to a folder's category, for that folder's namespace: VORLAN_IGNORE_IN(lcReturns)
// lets the folder write ignore([&] { statement; }).
#define VORLAN_IGNORE_IN(category)                                                                          \
    template <class F>                                                                                      \
    ::basic::RuntimeError ignore(F&& statement, std::source_location where = std::source_location::current()) { \
        return ::basic::ignore(category(), std::forward<F>(statement), where);                              \
    }

namespace basic {

// What the user asked for with --log: every message of the program is also written to the file at
// `path` (added to it), a line each with its time and category, and every vorlan category is turned on
// unless QT_LOGGING_RULES chooses. The reason, when the file cannot be opened for writing; else empty.
QString logToFile(const QString& path);

// Logs an error that a routine goes on past: its number and text, the routine and the line.
void logIgnored(const QLoggingCategory& category, const RuntimeError& error, const std::source_location& where);

// resume, for the statements whose errors the routine ignores by design: the next statement runs
// whatever happens, and the error leaves a debug line in the category.
template <class F>
RuntimeError ignore(const QLoggingCategory& category, F&& statement,
                    std::source_location where = std::source_location::current()) {
    RuntimeError e = resume(std::forward<F>(statement));
    if (e.number() != 0) logIgnored(category, e, where);
    return e;
}

}  // namespace basic
