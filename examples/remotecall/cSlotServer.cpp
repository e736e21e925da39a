#include "cSlotServer.h"

#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/cPublicSlot.h"
#include "nel_core/rmi/cRMIExceptions.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/sa/cSerializeToTypeString.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tPtrList.h"

namespace {

// Every item tells its type, so the types of the arguments are known although no slot takes them.
nstd::cAsciiString typesOf(nsa::cAbstractDeserializer& arguments)
{
    try {
        nsa::cSerializeToTypeString types;
        arguments.reserialize(types);
        nstd::cAsciiString text("(");
        text += types.typeString();
        text += ')';
        return text;
    } catch (nstd::cAbstractException const&) {
        return "(?)";
    }
}

} // namespace

void cSlotServer::run()
{
    sendInterface();
    nstd::tArray<char> request;
    while (mSocket.tryReceive(request))
        sendAnswer(request);
}

void cSlotServer::sendInterface()
{
    nsa::cSerializeBinary interface;
    for (auto const* const slot : mObject.codRSlots())
        *slot >> interface;
    mSocket.send(interface.ownData());
}

void cSlotServer::sendAnswer(nstd::tArray<char> const& request)
{
    nsa::cSerializeBinary answer;
    try {
        nsa::cDeserializeBinary reader(request);
        true >> answer;
        call(reader, answer);
    } catch (nstd::cAbstractException const& error) {
        answer.clear(); // what there is of a result
        false >> answer;
        error.storeRecursive(answer);
    }
    mSocket.send(answer.ownData());
}

void cSlotServer::call(nsa::cAbstractDeserializer& request, nsa::cAbstractSerializer& results)
{
    nstd::cAsciiString name;
    name << request;
    if (!mObject.tryFindSlot(name))
        nrmi::cRMIExceptions::throwNoSuchSlot(name, typesOf(request));
    mObject.invokeIndirectRemoteSlot(name, request, results);
}
