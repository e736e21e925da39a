#include "cRemoteFactory.h"

#include "cRemoteSlotCall.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/std/cSTDExceptions.h"

cRemoteFactory::cRemoteFactory(cAbstractPackets& socket) : mSocket(socket) { }

cRemoteFactory::~cRemoteFactory() = default;

void cRemoteFactory::receiveInterface(nrmi::cConnectable& object)
{
    nstd::tArray<char> packet;
    mSocket.receive(packet);
    nsa::cDeserializeBinary interface(packet);
    while (!interface.eoc())
        object.registerRemoteSlot(interface, *this);
}

nstd::tAutoPtr<nrmi::cAbstractSlotCall> cRemoteFactory::createRemoteSlotCall(nrmi::cConnectable& object)
{
    return nstd::tAutoPtr<nrmi::cAbstractSlotCall>(new cRemoteSlotCall(object, mSocket));
}

nrmi::cAbstractSignal& cRemoteFactory::createRemoteSignal(unsigned int)
{
    cSTDExceptions::throwUnsupportedOperation("cRemoteFactory::createRemoteSignal(...)");
}
