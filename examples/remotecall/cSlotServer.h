#pragma once

#include "cAbstractPackets.h"
#include "nel_core/rmi/fwd.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/tArray.h"

/// Lets the other side of a connection call the public slots of an object.
///
/// The first packet is the interface: the stored forms of all public slots. From then on a packet received is
/// a call (the name as ASCII string, then the arguments), and the packet sent is its answer: the bool true
/// and what the slot call has written, or the bool false and the chain of exceptions.
class cSlotServer {
public:
    /// Both must outlive the server.
    cSlotServer(nrmi::cConnectable& object, cAbstractPackets& socket) : mObject(object), mSocket(socket) { }

    /// Sends the interface, then answers calls until the other side closes the connection.
    void run();

private:
    void sendInterface();
    void sendAnswer(nstd::tArray<char> const& request);
    void call(nsa::cAbstractDeserializer& request, nsa::cAbstractSerializer& results);

    nrmi::cConnectable& mObject;
    cAbstractPackets& mSocket;
};
