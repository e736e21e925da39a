#pragma once

#include "cAbstractPackets.h"
#include "nel_core/rmi/cAbstractSlotCall.h"

/// Forwards the calls of a public slot to the slot of the same name on the other side, see cSlotServer.
class cRemoteSlotCall : public nrmi::cAbstractSlotCall {
public:
    /// A call for `object`; it and `socket` must outlive it.
    cRemoteSlotCall(nrmi::cConnectable& object, cAbstractPackets& socket);
    ~cRemoteSlotCall() override;

    using nrmi::cAbstractSlotCall::call;
    /// Calls the slot with the values of the readable entries. The result is assigned to the last entry, what
    /// the slot made of its arguments to the alterable ones:
    ///
    ///     frame.addRef(value, false, true);  // an argument that the slot only reads
    ///     frame.addRef(value, true, true);   // an argument that the slot may change
    ///     frame.addRef(result, false, false);
    ///
    /// A failure there raises nstd::cRuntimeException with the chain of the other side as its history.
    void call(nsa::cReferenceFrame& frame) const override;

private:
    cAbstractPackets& mSocket;
};
