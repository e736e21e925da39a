#pragma once

#include "cDescriptor.h"
#include "cTcpIpv4Address.h"
#include "nel_core/nce/net++/cNetAbstractClient.h"
#include "nel_core/pi/cWork.h"

namespace nnet {

/// The connecting side of TCP over IPv4.
class cTcpIpv4Client final : public nce::cNetAbstractClient {
public:
    cTcpIpv4Client(cTcpIpv4Address const& target, npi::cWorkQueue* queue);
    ~cTcpIpv4Client() override;

    /// Raises an unsupported operation when it connects already or has a connection to hand over, and OS
    /// errors.
    void connect(unsigned int timeoutMs) override;
    bool isConnected() const override;
    /// Raises nstd::cRuntimeException when it is not connected; so does processConnect() when it does not
    /// even connect.
    [[nodiscard]] nstd::tAutoPtr<nce::cNetAbstractConnection> connection() override;
    nce::cNetAbstractAddress const& targetAddress() const override;
    /// Takes at most 10 ms. Raises the OS error "connect" for a failed attempt, and what sltTimeout() raises
    /// for one that takes too long; the attempt has ended then. Afterwards this object may be gone.
    void processConnect() override;

    /// Connected to the works.
    piVoid sltConnectable();
    piVoid sltTimeIsUp();

private:
    bool isWritable() const;
    bool isTimeUp();
    int identify();
    void disarm();
    void abandon();

    cTcpIpv4Address mTarget;
    cTcpIpv4Address mPeer;   ///< who has answered
    cDescriptor mDescriptor; ///< outlives the work that waits for it
    npi::cWork mConnectable;
    bool mbConnected = false;
};

} // namespace nnet
