#include "nel_core/nce/net++/cNetAbstractSocket.h"

#include "nel_core/pi/cWorkQueue.h"

namespace nce {

cNetAbstractSocket::cNetAbstractSocket() = default;

cNetAbstractSocket::~cNetAbstractSocket() = default;

void cNetAbstractSocket::schedule(npi::cWorkQueue& queue)
{
    queue.addJob(mReadable);
    queue.addJob(mWritable);
    queue.addJob(mException);
}

} // namespace nce
