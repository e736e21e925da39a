#include "nel_core/pi/cLocalEventProcessor.h"

#include "nel_core/pi/cPlatform.h"
#include "nel_core/std/cTime.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tSharedObject.h"

namespace npi {

cLocalEventProcessor::cLocalEventProcessor() = default;

cLocalEventProcessor::~cLocalEventProcessor() = default;

bool cLocalEventProcessor::supportsAIO() const
{
    return false;
}

bool cLocalEventProcessor::isAsynchronous() const
{
    return false;
}

void cLocalEventProcessor::yield(unsigned int, nstd::tList<nstd::tSharedObject<cWork>>& jobs,
                                 unsigned int timeout)
{
    if (jobs.empty())
        waitUntilWoken(timeout);
    sigFinished();
}

void cLocalEventProcessor::wakeUp()
{
    mbWakeUp = true;
}

void cLocalEventProcessor::waitUntilWoken(unsigned int timeout)
{
    nstd::cTime const begin;
    while (begin.diff().toMSec() < timeout) {
        cPlatform::yield();
        if (mbWakeUp)
            break;
    }
    mbWakeUp = false;
}

} // namespace npi
