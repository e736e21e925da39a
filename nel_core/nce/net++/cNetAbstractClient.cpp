#include "nel_core/nce/net++/cNetAbstractClient.h"

#include "nel_core/pi/cSystem.h"
#include "nel_core/std/raise.h"

namespace nce {

cNetAbstractClient::cNetAbstractClient(npi::cWorkQueue* queue) : mpQueue(queue)
{
    sigConnected.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    mTimeout.sigAction.connect(nrmi::slot(this, &cNetAbstractClient::sltTimeout));
    mTimeout.setName("network client time-out");
    wq().addJob(mTimeout);
}

cNetAbstractClient::~cNetAbstractClient()
{
    nstd::cLife::end(mpLives);
}

npi::cWorkQueue& cNetAbstractClient::wq() const
{
    return mpQueue ? *mpQueue : npi::system().workQueue;
}

void cNetAbstractClient::startTimeout(unsigned int milliseconds)
{
    mTimeout.start(milliseconds, npi::cWork::SingleTask);
}

void cNetAbstractClient::stopTimeout()
{
    mTimeout.stop();
}

nstd::tAutoPtr<cNetAbstractConnection> cNetAbstractClient::waitConnection()
{
    nstd::cLife const life(mpLives);
    while (!isConnected()) {
        processConnect();
        if (!life)
            return nstd::tAutoPtr<cNetAbstractConnection>();
    }
    return connection();
}

piVoid cNetAbstractClient::sltTimeout()
{
    nstd::raiseRuntime(nstd::makeMessage("$MTR$Timeout while establish network connection to %to%!",
                                         targetAddress().toString()));
}

} // namespace nce
