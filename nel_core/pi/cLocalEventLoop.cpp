#include "nel_core/pi/cLocalEventLoop.h"

#include "nel_core/pi/cSystem.h"

namespace npi {

cLocalEventLoop::cLocalEventLoop(cWorkQueue* queue) : mpQueue(queue ? queue : &system().workQueue)
{
    ++mpQueue->miLocalLoops;
}

cLocalEventLoop::~cLocalEventLoop()
{
    --mpQueue->miLocalLoops;
}

void cLocalEventLoop::process()
{
    mpQueue->process();
}

} // namespace npi
