#pragma once
// This folder's logging category, vorlan.shell, and its ignore(): a statement whose error the
// routine goes on past leaves a debug line there.
#include "platform/basic/log.h"

Q_DECLARE_LOGGING_CATEGORY(lcShell)

namespace shell {
VORLAN_IGNORE_IN(lcShell)
}
