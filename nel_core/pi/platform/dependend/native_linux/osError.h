#pragma once

#include "nel_core/std/tArray.h"
#include "nel_core/ucs/fwd.h"

/// What the native files have in common: names as the operating system takes them, and its errors.
namespace npi {

using tEncodedName = nstd::tArray<char>;

/// Raises nstd::cOSErrorException; `code` is the errno that was read right after the call.
[[noreturn]] void throwOSError(char const* operation, int code);
[[noreturn]] void throwOSError(char const* operation, int code, nucs::cString const& path);

/// The bytes of a path with a zero behind them. Raises what the codec raises, and EINVAL under `operation`
/// for a path with a zero inside: the system would take it for a shorter one.
tEncodedName encodedName(nucs::cString const& path, nucs::cAbstractEnDec const& codec, char const* operation);

/// The same for queries: no check.
tEncodedName encodedUnchecked(nucs::cString const& path, nucs::cAbstractEnDec const& codec);
/// Whether such a name has no zero inside.
bool isWholeName(tEncodedName const& name);

} // namespace npi
