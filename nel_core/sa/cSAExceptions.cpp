#include "nel_core/sa/cSAExceptions.h"

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/raise.h"

using nstd::makeMessage;
using nstd::raiseBug;
using nstd::raiseRuntime;

void cSAExceptions::throwInvalidTypeId(long long id)
{
    raiseRuntime(makeMessage("$MTR$Invalid type id (%id%) while deserializing!", id));
}

void cSAExceptions::throwEndOfContext()
{
    raiseRuntime(makeMessage("$MTR$Unable to deserialize - end of context!"));
}

void cSAExceptions::throwSerializerDataWithOpenContexts()
{
    raiseBug(makeMessage("$MTR$Calling data() with open contexts is invalid!"));
}

void cSAExceptions::throwSerializerClearWithOpenContexts()
{
    raiseBug(makeMessage("$MTR$Calling erase() with open contexts is invalid!"));
}

void cSAExceptions::throwContextRefNoImpl()
{
    raiseBug(makeMessage("$MTR$cContextRef::unguardImpl(): no valid reference!"));
}

void cSAExceptions::throwLabelNotFound(nstd::cAsciiString const& label)
{
    raiseRuntime(
        makeMessage("$MTR$Unable to deserialize - label (\"%label%\") not found in current context!", label));
}

void cSAExceptions::throwUnserializable(char const* type)
{
    raiseBug(makeMessage("$MTR$Attempt to serialize the local type %type%!", nstd::orUnknown(type)));
}

void cSAExceptions::throwDeserializationError(nstd::cAbstractException const& cause,
                                              nstd::cAsciiString const& className)
{
    raiseRuntime(makeMessage("$MTR$Deserialization error in (%class%)!", className), cause);
}

void cSAExceptions::throwSerializationError(nstd::cAbstractException const& cause,
                                            nstd::cAsciiString const& className)
{
    raiseRuntime(makeMessage("$MTR$Serialization error (%class%)!", className), cause);
}
