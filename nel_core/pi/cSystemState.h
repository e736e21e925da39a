#pragma once

#include "nel_core/pi/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace npi {

/// Where the system object is in its life. Internal to the library: code that may run while the system is
/// being built or torn down asks before it uses npi::system().
enum class SystemState {
    none,     ///< there is no system; npi::system() builds one
    building, ///< npi::system() aborts
    alive,
    teardown, ///< npi::system() gives the system that is going away
};

SystemState systemState() noexcept;

/// The system's debug output while entries can go there: from the end of the building until it is destroyed,
/// null at other times.
cDebugStdErr* systemDebugOutput() noexcept;

/// The system's locale while it can be asked, which is as long as entries can go to its debug output; null at
/// other times.
nucs::cLILocale* systemLocale() noexcept;

} // namespace npi
