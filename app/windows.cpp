#include "windows.h"

#include "platform/forms/window_registry.h"
#include "returns/frm_normal.h"
#include "shell/main_window.h"

namespace app {

void defineWindows() {
    forms::define(QStringLiteral("main"), [] { return new shell::main; });
    forms::define(QStringLiteral("frmNormal"), [] { return new returns::frmNormal; });
}

}  // namespace app
