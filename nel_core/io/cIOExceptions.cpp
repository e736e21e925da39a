#include "nel_core/io/cIOExceptions.h"

#include "nel_core/std/raise.h"
#include "nel_core/ucs/cString.h"

using nstd::makeMessage;
using nstd::raiseBug;
using nstd::raiseRuntime;

namespace nio {

void cIOExceptions::throwEndOfFile(nucs::cString const& file)
{
    raiseBug(makeMessage("$MTR$End of file \"%file%\" reached!", file));
}

void cIOExceptions::throwRelativePathUnderrun(nucs::cString const& path)
{
    raiseRuntime(makeMessage("$MTR$Invalid path \"%path%\"!", path));
}

void cIOExceptions::throwUnableCreatePath(nstd::cAbstractException const& cause, nucs::cString const& path)
{
    raiseRuntime(makeMessage("$MTR$Unable to create path \"%path%\"!", path), cause);
}

void cIOExceptions::throwUnableRemoveFile(nstd::cAbstractException const& cause, nucs::cString const& file)
{
    raiseRuntime(makeMessage("$MTR$Unable to remove file \"%file%\"!", file), cause);
}

void cIOExceptions::throwUnableReadFile(nstd::cAbstractException const& cause, nucs::cString const& file)
{
    raiseRuntime(makeMessage("$MTR$Unable to read from file \"%file%\"!", file), cause);
}

void cIOExceptions::throwUnableWriteFile(nstd::cAbstractException const& cause, nucs::cString const& file)
{
    raiseRuntime(makeMessage("$MTR$Unable to write to file \"%file%\"!", file), cause);
}

void cIOExceptions::throwUnableOpenFile(nstd::cAbstractException const& cause, nucs::cString const& file)
{
    raiseRuntime(makeMessage("$MTR$Unable to open file \"%file%\"!", file), cause);
}

void cIOExceptions::throwUnableToRead(unsigned long long bytes)
{
    raiseRuntime(makeMessage("$MTR$Unable to read %bytes% bytes!", bytes));
}

void cIOExceptions::throwUnableToWrite(unsigned long long bytes)
{
    raiseRuntime(makeMessage("$MTR$Unable to write %bytes% bytes!", bytes));
}

void cIOExceptions::throwUnableToReadOddAmountOfData(unsigned long long bytes, unsigned int elementSize)
{
    raiseRuntime(makeMessage("$MTR$Unable to read odd amount of data (%bytes% bytes but element size is "
                             "%elementSize%)!",
                             bytes, elementSize));
}

void cIOExceptions::throwIOTimeout(unsigned int milliseconds)
{
    raiseRuntime(makeMessage("$MTR$Timeout while i/o operation after %time% milliseconds!", milliseconds));
}

} // namespace nio
