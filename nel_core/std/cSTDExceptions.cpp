#include "nel_core/std/cSTDExceptions.h"

#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/cTextParseException.h"
#include "nel_core/std/cTypeMissmatchException.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/raise.h"

using nstd::makeMessage;
using nstd::orUnknown;
using nstd::raiseBug;
using nstd::raiseRuntime;

namespace {

// The positions of the traces' entries are a part of the interface.
constexpr unsigned int kAssertionTraceLine = 26;
constexpr unsigned int kRangeTraceLine = 64;

} // namespace

void cSTDExceptions::throwOutOfRange(char const* container, char const* operation, OutOfRangeType type,
                                     long long value, long long min, long long max)
{
    nstd::writeStackTrace(NEL_SOURCE_TAG, kRangeTraceLine);
    throw nstd::cOutOfRangeException(container, operation, type, value, min, max);
}

void cSTDExceptions::throwOutOfBounds(char const* container, char const* operation)
{
    throw nstd::cOutOfBoundsException(container, operation);
}

void cSTDExceptions::throwAssertionFailed(char const* expression, char const* file, unsigned int line)
{
    nstd::writeStackTrace(NEL_SOURCE_TAG, kAssertionTraceLine);
    nstd::cBugException::throwAssertionFailed(expression, file, line);
}

void cSTDExceptions::throwCoreBug(char const* bug, char const* file, unsigned int line)
{
    throw nstd::cBugException(makeMessage("$MTR$Bug (\"%bug%\") detected!", orUnknown(bug)), file, line);
}

void cSTDExceptions::throwElementNotFound(char const* container, char const* operation)
{
    raiseBug(
        makeMessage("$MTR$Element could not be found in \"%container%\" while operation \"%operation%\"!",
                    orUnknown(container), orUnknown(operation)));
}

void cSTDExceptions::throwUnsupportedOperation(nstd::cAsciiString const& operation)
{
    raiseBug(makeMessage("$MTR$The operation \"%s%\" is not supported!", operation));
}

void cSTDExceptions::throwWrongAnyDereference(nstd::cAsciiString const& requested,
                                              nstd::cAsciiString const& contained)
{
    nstd::cTypeMissmatchException error(requested, contained);
    error.link(new nstd::cRuntimeException(
        makeMessage("$MTR$User requested object of wrong type (\"%type%\") from type cAny which contains "
                    "\"%contains%\"!",
                    requested, contained)));
    throw error;
}

void cSTDExceptions::throwTextParseError(nucs::cLIMessage const& message, nstd::cAsciiString const& format,
                                         nucs::cString const& fileName, unsigned int row, unsigned int column)
{
    throw nstd::cTextParseException(message, format, fileName, row, column);
}

void cSTDExceptions::throwUnexpectedEndOfInput()
{
    raiseRuntime(makeMessage("$MTR$Unexpected end of input!"));
}

void cSTDExceptions::throwInvalidDecimal(nucs::cString const& text, unsigned int index)
{
    raiseRuntime(
        makeMessage("$MTR$Invalid decimal number (\"%string%\"). Character at index %index% not points "
                    "to digit!",
                    text, index));
}

void cSTDExceptions::throwInvalidDecimalBase(int base, int min, int max)
{
    raiseRuntime(makeMessage(
        "$MTR$Invalid base for a decimal. The base must be between %min% and %max% but is %base%!", min, max,
        base));
}
