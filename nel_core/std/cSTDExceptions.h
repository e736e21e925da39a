#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

/// The throw functions of the core types. Each makes its exception, with no source position unless it
/// takes one, and throws it; none returns. Placeholders of the messages are filled in the order stated.
class NEL_EXPORT cSTDExceptions {
public:
    /// Which sentence an out-of-range error uses; any other value uses that of ortIndex.
    enum OutOfRangeType : unsigned int {
        ortIndex = 0,       ///< an index of an existing element
        ortValue = 1,       ///< an insert position or a truncation length
        ortSize = 2,        ///< a number of elements
        ortIndexOrSize = 3, ///< an index or a size
        ortEndValue = 4,    ///< the end of a range
    };

    /// Raises nstd::cOutOfRangeException: `value` should have been between `min` and `max`. A null
    /// container or operation becomes "unknown". Writes a stack trace to the debug output first.
    [[noreturn]] static void throwOutOfRange(char const* container, char const* operation,
                                             OutOfRangeType type, long long value, long long min,
                                             long long max);
    /// Raises nstd::cOutOfBoundsException; container, or operation, or both may be null.
    [[noreturn]] static void throwOutOfBounds(char const* container, char const* operation);
    /// Writes a stack trace to the debug output and raises nstd::cBugException for a failed assertion.
    [[noreturn]] static void throwAssertionFailed(char const* expression, char const* file,
                                                  unsigned int line);
    /// Raises nstd::cBugException that carries the given source position.
    [[noreturn]] static void throwCoreBug(char const* bug, char const* file, unsigned int line);
    /// Raises nstd::cBugException; a null container or operation becomes "unknown".
    [[noreturn]] static void throwElementNotFound(char const* container, char const* operation);
    /// Raises nstd::cBugException.
    [[noreturn]] static void throwUnsupportedOperation(nstd::cAsciiString const& operation);
    /// Raises nstd::cTypeMissmatchException with a runtime exception linked that tells of the two types.
    [[noreturn]] static void throwWrongAnyDereference(nstd::cAsciiString const& requested,
                                                      nstd::cAsciiString const& contained);
    /// Raises nstd::cTextParseException with the given message; row and column count from 1.
    [[noreturn]] static void throwTextParseError(nucs::cLIMessage const& message,
                                                 nstd::cAsciiString const& format,
                                                 nucs::cString const& fileName, unsigned int row,
                                                 unsigned int column);
    /// Raises nstd::cRuntimeException.
    [[noreturn]] static void throwUnexpectedEndOfInput();
    /// Raises nstd::cRuntimeException; `index` is that of the offending character in the whole text.
    [[noreturn]] static void throwInvalidDecimal(nucs::cString const& text, unsigned int index);
    /// Raises nstd::cRuntimeException: `base` should have been between `min` and `max`.
    [[noreturn]] static void throwInvalidDecimalBase(int base, int min, int max);
};
