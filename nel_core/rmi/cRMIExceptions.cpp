#include "nel_core/rmi/cRMIExceptions.h"

#include "nel_core/rmi/cNoSuchSignalException.h"
#include "nel_core/rmi/cNoSuchSlotException.h"
#include "nel_core/rmi/cUnconnectedSignalException.h"
#include "nel_core/std/raise.h"

using nstd::makeMessage;
using nstd::raiseBug;

namespace nrmi {

void cRMIExceptions::throwIndirectCallSlotCallRef()
{
    raiseBug(makeMessage("$MTR$Indirect slots cannot be called by reference!"));
}

void cRMIExceptions::throwIndirectLocalSlotCall()
{
    raiseBug(makeMessage("$MTR$Slots connected to an explicit local signal cannot be called indirectly!"));
}

void cRMIExceptions::throwIndirectLocalConnection()
{
    raiseBug(makeMessage("$MTR$Indirect connections not possible with explicit local signals!"));
}

void cRMIExceptions::throwUnconnectedSignal()
{
    throw cUnconnectedSignalException();
}

void cRMIExceptions::throwNoSuchSignal(nstd::cAsciiString const& name)
{
    throw cNoSuchSignalException(name);
}

void cRMIExceptions::throwNoSuchSlot(nstd::cAsciiString const& name, nstd::cAsciiString const& args)
{
    throw cNoSuchSlotException(name, args);
}

} // namespace nrmi
