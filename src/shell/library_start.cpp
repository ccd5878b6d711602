#include "shell/library_start.h"

#include "platform/basic/runtime_error.h"
#include "platform/store/connection.h"
#include "shell/my_mod.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace shell {

QString LibraryStartFault(const QString& programFolder, const QString& error) {
    QStringList failing;
    QString detail = error;
    for (int file = 1; file <= 3; ++file) {
        store::Connection probe;
        probe.setConnectionString(libraryConnectionString(programFolder, file));
        probe.setMode(store::Connection::adModeRead);
        const basic::RuntimeError fault = basic::resume([&] { probe.Open(); });
        if (fault.number() == 0) continue;
        if (failing.isEmpty()) detail = fault.description();
        failing << QFileInfo(probe.FilePath()).fileName();
    }
    const QString folder = QDir::toNativeSeparators(QDir::cleanPath(programFolder));
    QString files = failing.size() == 1 ? QStringLiteral("file ") : QStringLiteral("files ");
    files += failing.join(QStringLiteral(", "));
    return QStringLiteral("Vorlan cannot open its library ") + files.trimmed() + QStringLiteral("\nin the folder ") + folder +
           QStringLiteral("\n\n") + detail +
           QStringLiteral("\n\nA file that is missing or is not a Vorlan library file stops the start. "
                          "Reinstall the library and start again.");
}

}  // namespace shell
