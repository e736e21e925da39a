#include "nel_core/std/cTimer.h"

#include "nel_core/pi/cWorkQueue.h"

namespace nstd {

cTimer::cTimer()
{
    sigTimer.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    mWork.sigAction.connect(nrmi::slot(this, &cTimer::sltPoll));
    mWork.setName("nstd::cTimer");
    npi::schedule(mWork);
}

cTimer::cTimer(unsigned int ms) : cTimer()
{
    setInterval(ms);
}

cTimer::~cTimer() = default;

void cTimer::setInterval(unsigned int ms)
{
    start(ms, npi::cWork::Periodic);
}

void cTimer::setSingleShot(unsigned int ms)
{
    start(ms, npi::cWork::SingleTask);
}

void cTimer::reset()
{
    mbElapsed = false;
    mWork.stop();
}

piVoid cTimer::sltPoll()
{
    mbElapsed = true;
    return sigTimer(); // nothing after this: a slot may have deleted the timer
}

void cTimer::start(unsigned int ms, npi::cWork::Type type)
{
    mbElapsed = false;
    mWork.start(ms, type);
}

} // namespace nstd
