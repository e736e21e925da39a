#pragma once

#include "nel_core/export.h"
#include "nel_core/std/cAsciiString.h"

namespace nstd {

/// Appends; a string may be appended to itself.
NEL_EXPORT cAsciiString& operator<<(cAsciiString& out, cAsciiString const& text);
/// Appends a zero-terminated text; null fails an assertion.
NEL_EXPORT cAsciiString& operator<<(cAsciiString& out, char const* text);
/// Appends the number in decimal, whatever the default format is. A `char` prints as its number: use +=
/// for characters.
NEL_EXPORT cAsciiString& operator<<(cAsciiString& out, int value);
NEL_EXPORT cAsciiString& operator<<(cAsciiString& out, unsigned int value);
NEL_EXPORT cAsciiString& operator<<(cAsciiString& out, long long value);
NEL_EXPORT cAsciiString& operator<<(cAsciiString& out, unsigned long long value);

/// "0x" and `value` in base 16 with lower-case digits; a negative one has its sign behind the "0x".
NEL_EXPORT cAsciiString hex(long long value);

} // namespace nstd
