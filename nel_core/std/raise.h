#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/cLIMessage.h"

/// The common work of the throw functions. Modules, which let only exceptions of the library out, raise a
/// message of their own with it: nstd::raiseRuntime(nstd::makeMessage("$MTR$No gauge %n%!", n)).
namespace nstd {

/// A message with its values, bound in their order.
template<typename... Values>
nucs::cLIMessage makeMessage(char const* key, Values const&... values)
{
    nucs::cLIMessage message;
    message << key;
    static_cast<void>((message << ... << values));
    return message;
}

/// The text, or "unknown" for null.
constexpr char const* orUnknown(char const* text)
{
    return text ? text : "unknown";
}

/// Raises a cBugException without a source position.
[[noreturn]] NEL_EXPORT void raiseBug(nucs::cLIMessage message);
/// Raises a cRuntimeException without a source position.
[[noreturn]] NEL_EXPORT void raiseRuntime(nucs::cLIMessage message);
/// The same with a copy of `cause` linked.
[[noreturn]] NEL_EXPORT void raiseRuntime(nucs::cLIMessage message, cAbstractException const& cause);

/// Writes the calling thread's stack trace as one entry of the debug output. A trace that cannot be made or
/// written is left out, and so is one that is asked for while another is written. Internal to the
/// library.
void writeStackTrace(char const* tag, unsigned int line) noexcept;

} // namespace nstd
