#include "nel_core/pi/cPIExceptions.h"

#include "nel_core/pi/cUnsupportedPlatformException.h"
#include "nel_core/std/raise.h"

using nstd::makeMessage;
using nstd::raiseBug;
using nstd::raiseRuntime;

namespace npi {

void cPIExceptions::throwUnableGetOSSpecificPath()
{
    raiseRuntime(makeMessage("$MTR$Unable to find out os specific path!"));
}

void cPIExceptions::throwUnableGetCWD()
{
    raiseRuntime(makeMessage("$MTR$Unable to find out current working directory!"));
}

void cPIExceptions::throwUnimplemented(nstd::cAsciiString const& operation)
{
    throw cUnsupportedPlatformException(operation);
}

void cPIExceptions::throwRunnableNotAssignable()
{
    raiseBug(makeMessage("$MTR$Threads could not be assigned!"));
}

void cPIExceptions::throwRunnableNotCopyable()
{
    raiseBug(makeMessage("$MTR$Threads could not be copied!"));
}

} // namespace npi
