#include "platform/basic/app_path.h"

#include <QCoreApplication>

namespace basic {

namespace {
QString& appPath() {
    static QString path;
    return path;
}
}  // namespace

QString AppPath() {
    if (!appPath().isEmpty()) return appPath();
    return QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
}

void SetAppPath(const QString& folder) {
    QString f = folder;
    while (f.size() > 1 && f.endsWith(u'/')) f.chop(1);
    appPath() = f;
}

QString NativePath(const QString& systemPath) {
    QString p = systemPath;
    return p.replace(u'\\', u'/');
}

}  // namespace basic
