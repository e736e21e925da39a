#include "nel_core/nce/net++/cNetAbstractServer.h"

#include "nel_core/pi/cSystem.h"

namespace nce {

cNetAbstractServer::cNetAbstractServer(npi::cWorkQueue* queue) : mpQueue(queue)
{
    sigConnectionRequest.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    sigConnected.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
}

cNetAbstractServer::~cNetAbstractServer() = default;

npi::cWorkQueue& cNetAbstractServer::wq() const
{
    return mpQueue ? *mpQueue : npi::system().workQueue;
}

} // namespace nce
