#include "nel_core/ncs/moduleEntry.h"

NEL_MODULE_VERSION(1, 0)
