#include "nel_core/np/cAbstractProcessData.h"

#include "nel_core/np/cLocker.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/std/piAssert.h"

namespace np {

cAbstractProcessData::cAbstractProcessData(cLocker* owner) : mpOwnerLocker(owner) { }

cAbstractProcessData::~cAbstractProcessData() = default;

void cAbstractProcessData::restart()
{
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "cAbstractProcessData::restart()";
    cLocker::cLock const lock(mpContextLocker);
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << " -- unlock --";
    mbFinished = false;
    mbCanceled = false;
    mbRunning = true;
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "Setting running flag...";
}

void cAbstractProcessData::setContext(Context context, cLocker* contextLocker, cLocker* secondContextLocker)
{
    meContext = context;
    mpContextLocker = contextLocker;
    mpSecondContextLocker = secondContextLocker;
}

void cAbstractProcessData::setPreferredContext(Context context)
{
    mePreferredContext = context;
}

bool cAbstractProcessData::isCanceled() const
{
    cLocker::cLock const lock(mpContextLocker);
    return mbCanceled;
}

void cAbstractProcessData::cancel()
{
    cLocker::cLock const lock(mpContextLocker);
    mbCanceled = true;
}

bool cAbstractProcessData::isFinished() const
{
    cLocker::cLock const lock(mpContextLocker);
    return mbFinished;
}

void cAbstractProcessData::setFinished()
{
    cLocker::cLock const lock(mpContextLocker);
    mbFinished = true;
    mbRunning = false;
}

bool cAbstractProcessData::isRunning() const
{
    cLocker::cLock const lock(mpContextLocker);
    return mbRunning;
}

} // namespace np
