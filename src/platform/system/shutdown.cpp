#include "platform/system/shutdown.h"

#include <QProcess>
#include <QtGlobal>

namespace sys {

namespace {

// Shut down (1) and power off (8) run "systemctl poweroff"; log off and reboot are not offered.
class MachineShutdown : public Shutdown {
public:
    long ExitWindowsEx(unsigned flags, unsigned) override {
        if (!(flags & (EWX_SHUTDOWN | EWX_POWEROFF))) return 0;
        // A headless run (the tests) never powers the machine off, even if it missed installing a fake.
        if (qgetenv("QT_QPA_PLATFORM") == "offscreen") return 0;
        return QProcess::startDetached(QStringLiteral("systemctl"), {QStringLiteral("poweroff")}) ? 1 : 0;
    }
};

MachineShutdown machine;
Shutdown* installed = &machine;

}  // namespace

Shutdown* setShutdown(Shutdown* shutdown) {
    Shutdown* before = installed;
    installed = shutdown ? shutdown : &machine;
    return before;
}

long ExitWindowsEx(unsigned flags, unsigned reserved) { return installed->ExitWindowsEx(flags, reserved); }

}  // namespace sys
