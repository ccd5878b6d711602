#pragma once
// The user's remembered choices, all in one file, ~/.config/Vorlan/Vorlan.ini: the last book, the folders
// last used, the zoom, light on dark. Tests point QSettings' user scope (IniFormat) at a folder of their own.
#include <QSettings>

namespace basic {

inline QSettings Settings() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Vorlan"), QStringLiteral("Vorlan"));
}

}  // namespace basic
