#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/pi/piStackTrace.h"
#include "nel_core/std/piAssert.h"

namespace npi {
namespace {

constexpr unsigned int kTraceDepth = 128;

void warnOfMissingName()
{
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "Work scheduled without name!";
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << piStackTrace(kTraceDepth);
}

} // namespace

cWork& schedule(cWork& work)
{
    system().workQueue.addJob(work);
    return work;
}

nstd::tSharedObject<cWork> schedule(nstd::tAutoPtr<cWork> work)
{
    nstd::tSharedObject<cWork> const handle(work);
    system().workQueue.addJob(handle);
    return handle;
}

nstd::tSharedObject<cWork> schedule(nrmi::cAbstractSlotCall0<piVoid> const& slot, unsigned int interval,
                                    char const* name)
{
    return schedule(slot, interval, cWork::SingleTask, name);
}

nstd::tSharedObject<cWork> schedule(nrmi::cAbstractSlotCall0<piVoid> const& slot, unsigned int interval,
                                    cWork::Type type, char const* name)
{
    cWorkQueue& queue = system().workQueue;
    nstd::tSharedObject<cWork> const work = queue.createJob();
    try {
        if (name)
            work->setName(name);
        else
            warnOfMissingName();
        work->sigAction.connect(slot);
        work->start(interval, type);
    } catch (...) {
        if (work)
            queue.removeJob(*work);
        throw;
    }
    return work;
}

void unschedule(cWork& work)
{
    system().workQueue.removeJob(work);
}

} // namespace npi
