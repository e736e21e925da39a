#pragma once

#include "nel_core/export.h"
#include "nel_core/rmi/fwd.h"
#include "nel_core/std/fwd.h"

namespace nrmi {

/// The throw functions of signals and slots. Each makes its exception without a source position and throws
/// it.
class NEL_EXPORT cRMIExceptions {
public:
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwIndirectCallSlotCallRef();
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwIndirectLocalSlotCall();
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwIndirectLocalConnection();
    /// Raises cUnconnectedSignalException.
    [[noreturn]] static void throwUnconnectedSignal();
    /// Raises cNoSuchSignalException.
    [[noreturn]] static void throwNoSuchSignal(nstd::cAsciiString const& name);
    /// Raises cNoSuchSlotException; `args` carries its own parentheses, as in "(?)".
    [[noreturn]] static void throwNoSuchSlot(nstd::cAsciiString const& name, nstd::cAsciiString const& args);
};

} // namespace nrmi
