#pragma once
// Where the reader's choices are remembered (the zoom, light on dark, the folder a PDF was last saved in):
// the user's settings file of the program, ~/.config/Vorlan/Vorlan.ini. Tests point QSettings' user
// scope at a folder of their own.
#include <QSettings>
#include <memory>

namespace documents {

inline std::unique_ptr<QSettings> readerSettings() {
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Vorlan"),
                                       QStringLiteral("Vorlan"));
}

}  // namespace documents
