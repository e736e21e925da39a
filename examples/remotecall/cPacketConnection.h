#pragma once

#include "cAbstractPackets.h"
#include "nel_core/nce/net++/cNetAbstractConnection.h"
#include "nel_core/rmi/cConnectable.h"

/// Packets over a connection of the library. Turns the system's work queue while it waits, and raises what
/// comes out of that.
class cPacketConnection : public cAbstractPackets, public nrmi::cConnectable {
public:
    typedef nce::cNetAbstractConnection::tBytes tBytes;

    /// Takes a connection that is not scheduled yet, and schedules it.
    explicit cPacketConnection(nstd::tAutoPtr<nce::cNetAbstractConnection> connection);
    ~cPacketConnection() override;

    piVoid sltReceived(nce::cNetAbstractConnection& connection, tBytes const& data);
    piVoid sltClosed(nce::cNetAbstractConnection& connection);

private:
    void sendAll(char const* data, std::size_t size, Order order) override;
    std::size_t receiveUpTo(char* data, std::size_t size) override;

    nstd::tAutoPtr<nce::cNetAbstractConnection> mpConnection;
    tBytes maOut;             ///< the begun packet
    tBytes maIn;              ///< what has arrived
    unsigned int miTaken = 0; ///< of it, from its start
    bool mbClosed = false;
};
