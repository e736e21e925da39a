#pragma once

#include "nel_core/export.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/piTypes.h"

// Stack traces of the calling thread, innermost frame first. Capturing is cheap; making names of addresses is
// slow and meant for failures. The dynamic linker knows the functions that shared objects export, and those
// of a program only if it was linked with -rdynamic; other addresses appear as "0x" and hexadecimal digits.

/// Stores the return addresses of the calling thread. `n` is taken as 1 to 128: `buffer` has room for `n`
/// entries, at least for one. Unused entries are 0, the last one always.
NEL_EXPORT void piBackTrace(piAddress* buffer, unsigned int n);

/// The name of the function that contains the address, demangled; without one "0x" and the address in base
/// 16, and `resolved` is false.
NEL_EXPORT nstd::cAsciiString tryResolveAddrToSymbol(void* address, bool& resolved);

/// Replaces `out` by the name that tryResolveAddrToSymbol() finds; says whether it found one.
NEL_EXPORT bool piResolveAddress(piAddress address, nstd::cAsciiString& out);

/// The trace as text, one frame a line, each two spaces further to the right, after two line feeds. `depth`
/// is taken as 1 to 128; every entry makes a line, the unused ones too. Ends after "main".
NEL_EXPORT nstd::cAsciiString piStackTrace(unsigned int depth);

/// Stores the names of the frames into `out`, an array of `depth` strings, and returns how many it stored, at
/// most 128. Ends after "main"; a depth of 0 stores nothing.
NEL_EXPORT unsigned int piStackTrace(unsigned int depth, nstd::cAsciiString* out);

/// Writes "Stackdump: " and the trace to standard error. Made for failure handlers: raises nothing, and a
/// call while another one is at work does nothing.
NEL_EXPORT void piStackDump() noexcept;
