#include "windows.h"

#include "platform/forms/window_registry.h"
#include "returns/frm_normal.h"
#include "returns/frm_select.h"
#include "shell/main_window.h"
#include "shell/text_viewers.h"

namespace app {

void defineWindows() {
    forms::define(QStringLiteral("main"), [] { return new shell::main; });
    forms::define(QStringLiteral("frmNormal"), [] { return new returns::frmNormal; });
    forms::define(QStringLiteral("frmSelect"), [] { return new returns::frmSelect; });
    forms::define(QStringLiteral("frmEFiling"), [] { return new returns::frmEFiling; });
    forms::define(QStringLiteral("frmDirectToForm"), [] { return new returns::frmDirectToForm; });
    forms::define(QStringLiteral("help"), [] { return new shell::help; });
    forms::define(QStringLiteral("ack"), [] { return new shell::ack; });
    forms::define(QStringLiteral("Dealers"), [] { return new shell::Dealers; });
    forms::define(QStringLiteral("frmca"), [] { return new shell::frmca; });
}

}  // namespace app
