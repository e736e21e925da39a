#pragma once

#include "nel_core/export.h"

namespace npi {

/// The break point of this platform.
class NEL_EXPORT cLinuxBreakPoint {
public:
    /// Sends SIGTRAP to the own process.
    static void breakPoint();
};

} // namespace npi
