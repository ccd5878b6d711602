#pragma once
// Shutting the machine down, behind an interface: the program's own one asks systemd to power off;
// tests install a fake for the whole process, so that no test ever reaches the machine.
#include <QString>

namespace sys {

constexpr unsigned EWX_LOGOFF = 0, EWX_SHUTDOWN = 1, EWX_REBOOT = 2, EWX_POWEROFF = 8;

class Shutdown {
public:
    virtual ~Shutdown() = default;
    // Nonzero when the shut-down was set going.
    virtual long ExitWindowsEx(unsigned flags, unsigned reserved) = 0;
};

// Installs the shut-down used from now on (nullptr: the machine's own again) and returns the one
// it replaces. The caller keeps ownership.
Shutdown* setShutdown(Shutdown* shutdown);

// Through the installed shut-down.
long ExitWindowsEx(unsigned flags, unsigned reserved);

}  // namespace sys
