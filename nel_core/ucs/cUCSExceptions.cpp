#include "nel_core/ucs/cUCSExceptions.h"

#include "nel_core/std/raise.h"
#include "nel_core/ucs/cString.h"

using nstd::makeMessage;
using nstd::raiseRuntime;

void cUCSExceptions::throwUnableToParseTranslationFile(nstd::cAbstractException const& cause,
                                                       nucs::cString const& file, unsigned int line)
{
    raiseRuntime(makeMessage("$MTR$Unable to parse translation file (%filename%) line %line%!", file, line),
                 cause);
}

void cUCSExceptions::throwUnableToReadTranslationFile(nstd::cAbstractException const& cause,
                                                      nucs::cString const& file)
{
    raiseRuntime(makeMessage("$MTR$Unable to read translation file (%filename%)!", file), cause);
}

void cUCSExceptions::throwUSCEncodeError(nstd::cAbstractException const& cause)
{
    raiseRuntime(makeMessage("$MTR$Unicode encoding error!"), cause);
}

void cUCSExceptions::throwUCSDecodeError(nstd::cAbstractException const& cause)
{
    raiseRuntime(makeMessage("$MTR$Unicode decode error!"), cause);
}
