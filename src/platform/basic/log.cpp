#include "platform/basic/log.h"

VORLAN_LOGGING_CATEGORY(lcBasic, "vorlan.basic")
VORLAN_LOGGING_CATEGORY(lcStore, "vorlan.store")
VORLAN_LOGGING_CATEGORY(lcForms, "vorlan.forms")
VORLAN_LOGGING_CATEGORY(lcDocuments, "vorlan.documents")
VORLAN_LOGGING_CATEGORY(lcReports, "vorlan.reports")
VORLAN_LOGGING_CATEGORY(lcSystem, "vorlan.system")

namespace basic {

void logIgnored(const QLoggingCategory& category, const RuntimeError& error, const std::source_location& where) {
    if (!category.isDebugEnabled()) return;
    QString file = QString::fromUtf8(where.file_name());
    file = file.mid(file.lastIndexOf(u'/') + 1);
    QMessageLogger(where.file_name(), int(where.line()), where.function_name(), category.categoryName())
        .debug()
        .noquote()
        << "ignored error" << error.number() << error.description() << "in" << where.function_name() << "at"
        << QStringLiteral("%1:%2").arg(file).arg(where.line());
}

}  // namespace basic
