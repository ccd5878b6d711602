#include "platform/system/text_editor.h"

#include <QProcess>
#include <QStandardPaths>

#include "platform/basic/runtime_error.h"

namespace sys {

namespace {
basic::RuntimeError fileNotFound() { return basic::RuntimeError(53, QStringLiteral("File not found")); }
}  // namespace

const QStringList& textEditors() {
    static const QStringList editors{
        QStringLiteral("gedit"),    QStringLiteral("gnome-text-editor"), QStringLiteral("mousepad"),
        QStringLiteral("pluma"),    QStringLiteral("xed"),               QStringLiteral("kate"),
        QStringLiteral("kwrite"),   QStringLiteral("leafpad"),           QStringLiteral("featherpad"),
        QStringLiteral("xedit")};
    return editors;
}

QString findOnPath(const QString& program) { return QStandardPaths::findExecutable(program); }

QString chooseTextEditor(const ProgramLookup& lookup) {
    for (const QString& editor : textEditors()) {
        const QString path = lookup(editor);
        if (!path.isEmpty()) return path;
    }
    throw fileNotFound();
}

bool hasTextEditor(const ProgramLookup& lookup) {
    for (const QString& editor : textEditors())
        if (!lookup(editor).isEmpty()) return true;
    return false;
}

void startTextEditor(const ProgramLookup& lookup) {
    if (!QProcess::startDetached(chooseTextEditor(lookup), {})) throw fileNotFound();
}

}  // namespace sys
