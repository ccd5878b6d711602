#include "returns/remembered_folders.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace returns {

QString RememberedFolder(const QString& key) {
    const QString folder = QSettings().value(QStringLiteral("folders/") + key).toString();
    return !folder.isEmpty() && QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

void RememberFolder(const QString& key, const QString& folder) { QSettings().setValue(QStringLiteral("folders/") + key, folder); }

}  // namespace returns
