#include "nel_core/rmi/cRMIExceptions.h"

#include "nel_core/rmi/cCallParameterMissmatchException.h"
#include "nel_core/rmi/cNoSuchSignalException.h"
#include "nel_core/rmi/cNoSuchSlotException.h"
#include "nel_core/rmi/cPublicSlot.h"
#include "nel_core/rmi/cUnconnectedSignalException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/cTypeMissmatchException.h"
#include "nel_core/std/raise.h"

using nstd::makeMessage;
using nstd::raiseBug;
using nstd::raiseRuntime;

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

void cRMIExceptions::throwNoSuchSlot(nstd::cAsciiString const& name, nsa::cReferenceFrame& frame)
{
    throw cNoSuchSlotException(name, frame);
}

void cRMIExceptions::throwParameterMissmatch(cPublicSlot const* slot, nstd::cAbstractException const& cause)
{
    cCallParameterMissmatchException error(slot ? slot->name() : nstd::cAsciiString());
    if (slot)
        error.link(nstd::cRuntimeException(
            makeMessage("$MTR$Definition: \"%returnValue% %slotName%(%arguments%)\"", slot->returnTypeName(),
                        slot->name(), slot->paramTypeNames())));
    error.link(cause);
    throw error;
}

void cRMIExceptions::throwMissingReturnValue(nstd::cAbstractException const& cause)
{
    raiseRuntime(makeMessage("$MTR$Missing return value on reference frame while indirect slot call!"),
                 cause);
}

void cRMIExceptions::throwWrongReturnType(char const* expected, char const* found)
{
    throw nstd::cTypeMissmatchException(expected, found);
}

void cRMIExceptions::throwSignalNotPublic()
{
    raiseBug(makeMessage("$MTR$Signal is not a public one!"));
}

void cRMIExceptions::throwSlotNotPublic()
{
    raiseBug(makeMessage("$MTR$Slot is not a public one!"));
}

} // namespace nrmi
