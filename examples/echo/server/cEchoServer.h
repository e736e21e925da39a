#pragma once

#include "cEchoConnection.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/std/tPtrList.h"
#include "nel_net/cAbstractTcpFactory.h"

/// Listens at an address and sends back what arrives there.
class cEchoServer : public nrmi::cConnectable {
public:
    /// What has happened so far.
    struct cCounts {
        unsigned long long accepted = 0; ///< connections
        unsigned long long ended = 0;    ///< of these
        unsigned long long lost = 0;     ///< connections that could not even be taken
        unsigned long long bytes = 0;    ///< received, and on their way back
    };

    /// Listens; raises what makes that fail.
    cEchoServer(nnet::cAbstractTcpFactory const& factory, nce::cNetAbstractAddress const& local);
    ~cEchoServer() override;

    /// Where it listens; the port is never 0.
    nce::cNetAbstractAddress const& address() const { return mpServer->address(); }
    cCounts const& counts() const { return mCounts; }
    /// How many connections are open.
    unsigned long long open() const { return mCounts.accepted - mCounts.ended; }

    piVoid sltConnected(nce::cNetAbstractAddress const& peer);
    piVoid sltEchoed(unsigned int size);
    piVoid sltEnded(cEchoConnection& connection);
    piVoid sltDispose();

private:
    // A connection that finds itself in the list.
    struct cEntry;

    void take(nstd::tAutoPtr<nce::cNetAbstractConnection> connection);

    nstd::tAutoPtr<nnet::cAbstractTcpServer> mpServer;
    nstd::tPtrList<cEntry> mConnections; ///< owned
    nstd::tPtrList<cEntry> mEnded;       ///< owned; they go with the next turn of the queue
    npi::cWork mDisposal;
    cCounts mCounts;
};
