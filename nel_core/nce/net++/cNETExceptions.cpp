#include "nel_core/nce/net++/cNETExceptions.h"

#include "nel_core/std/raise.h"

using nstd::makeMessage;
using nstd::raiseRuntime;

void cNETExceptions::throwTransferTimeout(unsigned int milliseconds)
{
    raiseRuntime(makeMessage("$MTR$Transfer timeout after %iMSec% milliseconds!", milliseconds));
}

void cNETExceptions::throwConnectionTxBusy()
{
    raiseRuntime(makeMessage("$MTR$Unable to send packet - transmitter is busy!"));
}

void cNETExceptions::throwConnectionClosedUnexpectedly(nstd::cAbstractException const& cause)
{
    raiseRuntime(makeMessage("$MTR$Remote connection has been closed unexpectedly!"), cause);
}

void cNETExceptions::throwUnableToCompleteConnectionClosedUnexpectedly(nstd::cAbstractException const& cause)
{
    raiseRuntime(
        makeMessage("$MTR$Unable to complete request - remote connection has been closed unexpectedly!"),
        cause);
}

void cNETExceptions::throwInvalidAddress(nstd::cAbstractException const& cause)
{
    raiseRuntime(makeMessage("$MTR$Invalid network address!"), cause);
}
