#include "returns/remembered_folders.h"

#include "platform/basic/settings.h"

#include <QDir>
#include <QFileInfo>

namespace returns {

QString RememberedFolder(const QString& key) {
    const QString folder = basic::Settings().value(QStringLiteral("folders/") + key).toString();
    return !folder.isEmpty() && QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

void RememberFolder(const QString& key, const QString& folder) { basic::Settings().setValue(QStringLiteral("folders/") + key, folder); }

}  // namespace returns
