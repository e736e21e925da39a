#pragma once

#include "nel_core/export.h"
#include "nel_core/rmi/fwd.h"
#include "nel_core/sa/fwd.h"
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
    /// The same; the argument types are those of the frame.
    [[noreturn]] static void throwNoSuchSlot(nstd::cAsciiString const& name, nsa::cReferenceFrame& frame);
    /// Raises cCallParameterMissmatchException with a copy of `cause` linked; `slot`, which may be null, is
    /// described between the two.
    [[noreturn]] static void throwParameterMissmatch(cPublicSlot const* slot,
                                                     nstd::cAbstractException const& cause);
    /// Raises nstd::cRuntimeException with a copy of `cause` linked.
    [[noreturn]] static void throwMissingReturnValue(nstd::cAbstractException const& cause);
    /// Raises nstd::cTypeMissmatchException for the result entry of a frame.
    [[noreturn]] static void throwWrongReturnType(char const* expected, char const* found);
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwSignalNotPublic();
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwSlotNotPublic();
};

} // namespace nrmi
