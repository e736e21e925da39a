#pragma once

#include "nel_core/export.h"

namespace npi {

/// Stops in an attached debugger; without one the signal ends the process.
NEL_EXPORT void breakPoint();

} // namespace npi
