#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"

/// The throw functions of serialization. Each makes its exception without a source position and throws it.
class NEL_EXPORT cSAExceptions {
public:
    /// Raises nstd::cRuntimeException: the stream holds an item of an unknown kind.
    [[noreturn]] static void throwInvalidTypeId(long long id);
    /// Raises nstd::cRuntimeException.
    [[noreturn]] static void throwEndOfContext();
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwSerializerDataWithOpenContexts();
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwSerializerClearWithOpenContexts();
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwContextRefNoImpl();
    /// Raises nstd::cRuntimeException.
    [[noreturn]] static void throwLabelNotFound(nstd::cAsciiString const& label);
    /// Raises nstd::cBugException; a null type becomes "unknown".
    [[noreturn]] static void throwUnserializable(char const* type);
    /// Raises nstd::cRuntimeException for the class named, with a copy of `cause` linked.
    [[noreturn]] static void throwDeserializationError(nstd::cAbstractException const& cause,
                                                       nstd::cAsciiString const& className);
    /// Raises nstd::cRuntimeException for the class named, with a copy of `cause` linked.
    [[noreturn]] static void throwSerializationError(nstd::cAbstractException const& cause,
                                                     nstd::cAsciiString const& className);
};
