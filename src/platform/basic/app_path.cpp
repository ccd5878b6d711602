#include "platform/basic/app_path.h"

#include <QCoreApplication>

namespace basic {

namespace {
QString& appPath() {
    static QString path;
    return path;
}
QString& userPath() {
    static QString path;
    return path;
}
QString& currentPath() {
    static QString path;
    return path;
}
QString withoutTrailingSlash(QString f) {
    while (f.size() > 1 && f.endsWith(u'/')) f.chop(1);
    return f;
}
}  // namespace

QString AppPath() {
    if (!appPath().isEmpty()) return appPath();
    return QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
}

void SetAppPath(const QString& folder) { SetFolders(folder, folder); }

QString UserPath() { return userPath().isEmpty() ? AppPath() : userPath(); }

void SetFolders(const QString& program, const QString& user) {
    appPath() = withoutTrailingSlash(program);
    userPath() = withoutTrailingSlash(user);
    currentPath().clear();
}

QString CurDir() { return currentPath().isEmpty() ? UserPath() : currentPath(); }

void ChDir(const QString& folder) { currentPath() = withoutTrailingSlash(folder); }

QString NativePath(const QString& systemPath) {
    QString p = systemPath;
    return p.replace(u'\\', u'/');
}

}  // namespace basic
