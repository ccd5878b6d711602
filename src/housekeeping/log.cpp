#include "housekeeping/log.h"

VORLAN_LOGGING_CATEGORY(lcHousekeeping, "vorlan.housekeeping")
