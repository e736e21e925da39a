#pragma once

#include "nel_core/nce/net++/cNetAbstractConnection.h"
#include "nel_core/rmi/cConnectable.h"

/// Sends back whatever arrives on a connection.
///
/// It holds one packet at a time: while the other side does not take it, nothing is received, so that a peer
/// that never reads costs no more than that.
class cEchoConnection : public nrmi::cConnectable {
public:
    typedef nce::cNetAbstractConnection::tBytes tBytes;

    /// The connection has ended: this object may go with the next turn of the queue. Must be connected.
    nrmi::localSignal1<piVoid, cEchoConnection&> sigEnded;
    /// So many bytes are on their way back. Must be connected.
    nrmi::localSignal1<piVoid, unsigned int> sigEchoed;

    /// Takes a connection that is not scheduled yet, and schedules it.
    explicit cEchoConnection(nstd::tAutoPtr<nce::cNetAbstractConnection> connection);
    ~cEchoConnection() override;

    piVoid sltReceived(nce::cNetAbstractConnection& connection, tBytes const& data);
    piVoid sltSent();
    piVoid sltFailed(nce::cNetAbstractConnection& connection, nstd::cAbstractException const& error);
    piVoid sltInvalidated(nce::cNetAbstractConnection& connection);

private:
    nstd::tAutoPtr<nce::cNetAbstractConnection> mpConnection;
    bool mbPaused = false; ///< until the packet is sent
};
