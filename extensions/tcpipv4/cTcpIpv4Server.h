#pragma once

#include "cDescriptor.h"
#include "cTcpIpv4Address.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/std/cLife.h"
#include "nel_core/std/tPtrList.h"
#include "nel_net/cAbstractTcpServer.h"

namespace nnet {

/// The listening side of TCP over IPv4.
class cTcpIpv4Server final : public cAbstractTcpServer {
public:
    cTcpIpv4Server(cTcpIpv4Address const& local, npi::cWorkQueue* queue);
    /// Closes it.
    ~cTcpIpv4Server() override;

    /// Raises an unsupported operation when it listens already, and OS errors, after which it does not.
    void listen() override;
    /// What was accepted and not handed over is closed, too.
    void close() override;
    bool isListening() const override;
    [[nodiscard]] nstd::tAutoPtr<nce::cNetAbstractConnection> connection() override;
    nce::cNetAbstractAddress const& address() const override;
    void setBacklog(unsigned int backlog) override;
    void setMaxPending(unsigned int count) override;

    /// Connected to the works.
    piVoid sltAcceptable();
    piVoid sltResume();

private:
    struct cPending;

    cDescriptor accept(cTcpIpv4Address& peer, int& code);
    bool refuse(int code);
    void admit(cDescriptor accepted, cTcpIpv4Address const& peer);

    cTcpIpv4Address mGiven;
    cTcpIpv4Address mBound;
    unsigned int miBacklog = 128;
    unsigned int miMaxPending = 64;
    unsigned int miPending = 0;
    nstd::tPtrList<cPending> mPending; ///< owned; the oldest one first
    cDescriptor mListener;             ///< outlives the work that waits for it
    npi::cWork mAcceptable;
    npi::cWork mResume;
    nstd::cLife* mpLives = nullptr; ///< tells calls on the stack whether this still lives
};

} // namespace nnet
