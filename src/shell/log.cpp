#include "shell/log.h"

VORLAN_LOGGING_CATEGORY(lcShell, "vorlan.shell")
