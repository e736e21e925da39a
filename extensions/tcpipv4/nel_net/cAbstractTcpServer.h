#pragma once

#include "nel_core/export.h"
#include "nel_core/nce/net++/cNetAbstractServer.h"

namespace nnet {

/// The listening side of TCP.
///
/// Whoever connects is asked for (sigConnectionRequest) and then queued (sigConnected); connection() hands
/// the connection over, which is not scheduled: its owner connects its slots and then schedules it. What
/// comes while the queue is full is closed at once. When the system has no descriptors or memory left,
/// accepting pauses for a quarter of a second.
class NEL_EXPORT cAbstractTcpServer : public nce::cNetAbstractServer {
public:
    using nce::cNetAbstractServer::cNetAbstractServer;

    /// The address that it is bound to, with the port that the system has chosen; the given one before
    /// listen().
    virtual nce::cNetAbstractAddress const& address() const = 0;
    /// How many connections the system may queue; 128 at first. Counts with the next listen().
    virtual void setBacklog(unsigned int backlog) = 0;
    /// How many accepted connections may wait for connection(); 64 at first.
    virtual void setMaxPending(unsigned int count) = 0;
};

} // namespace nnet
