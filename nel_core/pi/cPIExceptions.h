#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"

namespace npi {

/// The throw functions of the platform. Each makes its exception without a source position and throws it.
class NEL_EXPORT cPIExceptions {
public:
    /// Raises nstd::cRuntimeException.
    [[noreturn]] static void throwUnableGetOSSpecificPath();
    /// Raises nstd::cRuntimeException.
    [[noreturn]] static void throwUnableGetCWD();
    /// Raises cUnsupportedPlatformException.
    [[noreturn]] static void throwUnimplemented(nstd::cAsciiString const& operation);
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwRunnableNotAssignable();
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwRunnableNotCopyable();
};

} // namespace npi
