#include "platform/basic/log.h"

#include <QDateTime>
#include <QFile>

VORLAN_LOGGING_CATEGORY(lcBasic, "vorlan.basic")
VORLAN_LOGGING_CATEGORY(lcStore, "vorlan.store")
VORLAN_LOGGING_CATEGORY(lcForms, "vorlan.forms")
VORLAN_LOGGING_CATEGORY(lcDocuments, "vorlan.documents")
VORLAN_LOGGING_CATEGORY(lcReports, "vorlan.reports")
VORLAN_LOGGING_CATEGORY(lcSystem, "vorlan.system")

namespace basic {

namespace {

// Kept to the end of the process: messages come until the last static goes.
QFile* logFile = nullptr;
QtMessageHandler standardHandler = nullptr;

void writeBoth(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (standardHandler) standardHandler(type, context, message);
    const QString line = QDateTime::currentDateTime().toString(Qt::ISODateWithMs) + u' ' +
                         QString::fromLatin1(context.category ? context.category : "default") + QStringLiteral(": ") + message + u'\n';
    logFile->write(line.toUtf8());
    logFile->flush();
}

}  // namespace

QString logToFile(const QString& path) {
    auto* file = new QFile(path);
    if (!file->open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) {
        const QString reason = file->errorString();
        delete file;
        return reason.isEmpty() ? QStringLiteral("it cannot be opened") : reason;
    }
    logFile = file;
    standardHandler = qInstallMessageHandler(writeBoth);
    if (!qEnvironmentVariableIsSet("QT_LOGGING_RULES")) QLoggingCategory::setFilterRules(QStringLiteral("vorlan.*=true"));
    return QString();
}

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
