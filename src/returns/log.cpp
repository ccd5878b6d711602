#include "returns/log.h"

VORLAN_LOGGING_CATEGORY(lcReturns, "vorlan.returns")
