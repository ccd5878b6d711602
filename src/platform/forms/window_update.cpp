#include "platform/forms/window_update.h"

#include <QPointer>
#include <QWidget>

namespace forms {

namespace {
QPointer<QWidget> lockedWindow;
bool updatesBeforeLock = true;
}  // namespace

bool LockWindowUpdate(QWidget* window) {
    if (!window) {
        if (!lockedWindow) return false;
        lockedWindow->setUpdatesEnabled(updatesBeforeLock);
        lockedWindow = nullptr;
        return true;
    }
    if (lockedWindow) return false;
    lockedWindow = window;
    updatesBeforeLock = window->updatesEnabled();
    window->setUpdatesEnabled(false);
    return true;
}

}  // namespace forms
