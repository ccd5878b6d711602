#include "library/log.h"

VORLAN_LOGGING_CATEGORY(lcLibrary, "vorlan.library")
