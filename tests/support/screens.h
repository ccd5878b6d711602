#pragma once
// Where a test's picture of a window goes: docs/screens when the README's pictures are being made
// (VORLAN_SCREENS set), else the build folder's "screens", so that a run leaves nothing elsewhere.
#include <QDir>

inline QString screen(const QString& name) {
    const QString dir = qEnvironmentVariableIsSet("VORLAN_SCREENS") ? QStringLiteral(VORLAN_SOURCE_DIR "/docs/screens")
                                                                     : QStringLiteral(VORLAN_BUILD_DIR "/screens");
    QDir().mkpath(dir);
    return dir + QLatin1Char('/') + name;
}
