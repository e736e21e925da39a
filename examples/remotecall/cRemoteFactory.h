#pragma once

#include "cAbstractPackets.h"
#include "nel_core/rmi/cAbstractRMIFactory.h"
#include "nel_core/rmi/cConnectable.h"

/// Makes local slots that stand for those of the other side, see cSlotServer.
class cRemoteFactory : public nrmi::cAbstractRMIFactory {
public:
    /// `socket` must outlive the factory and the slot calls that it makes.
    explicit cRemoteFactory(cAbstractPackets& socket);
    ~cRemoteFactory() override;

    /// Receives the interface of the other side and publishes its slots on `object`.
    void receiveInterface(nrmi::cConnectable& object);

    [[nodiscard]] nstd::tAutoPtr<nrmi::cAbstractSlotCall>
    createRemoteSlotCall(nrmi::cConnectable& object) override;
    /// Raises an unsupported operation: no signals travel here.
    nrmi::cAbstractSignal& createRemoteSignal(unsigned int index) override;

private:
    cAbstractPackets& mSocket;
};
