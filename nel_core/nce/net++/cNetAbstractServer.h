#pragma once

#include "nel_core/nce/net++/cNetAbstractAddress.h"
#include "nel_core/nce/net++/cNetAbstractConnection.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/localSignal.h"

namespace nce {

/// The listening side of a transport. Network extensions derive from it and emit its signals.
class NEL_EXPORT cNetAbstractServer : public nrmi::cConnectable {
public:
    /// Somebody wants to connect from that address; a slot that sets the flag, true at first, to false
    /// refuses.
    nrmi::localSignal2<piVoid, cNetAbstractAddress const&, bool&> sigConnectionRequest;
    /// Somebody has connected from that address: connection() has the connection.
    nrmi::localSignal1<piVoid, cNetAbstractAddress const&> sigConnected;

    /// Works run in `queue`, null for the system's.
    explicit cNetAbstractServer(npi::cWorkQueue* queue);
    ~cNetAbstractServer() override;

    virtual void listen() = 0;
    virtual void close() = 0;
    virtual bool isListening() const = 0;
    /// The connection accepted first that was not handed over yet, empty when there is none.
    [[nodiscard]] virtual nstd::tAutoPtr<cNetAbstractConnection> connection() = 0;

    /// The queue in which works run.
    npi::cWorkQueue& wq() const;

private:
    npi::cWorkQueue* mpQueue; ///< not owned
};

} // namespace nce
