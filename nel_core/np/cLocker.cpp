#include "nel_core/np/cLocker.h"

#include "nel_core/pi/cAbstractMutexImpl.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/std/cSTDExceptions.h"

namespace np {

cLocker::cLock::cLock(cLocker* locker) : mpLocker(locker), mbLocked(true)
{
    if (mpLocker)
        mpLocker->doLock();
}

cLocker::cLock::cLock(cLockRef const& ref) : mpLocker(ref.locker), mbLocked(true)
{
    if (!mpLocker)
        return;
    if (ref.tryOnly)
        mbLocked = mpLocker->doTryLock();
    else
        mpLocker->doLock();
}

cLocker::cLock::~cLock()
{
    if (mpLocker && mbLocked)
        mpLocker->doUnlock();
}

cLocker::cUnlock::cUnlock(cLocker* locker) : mpLocker(locker)
{
    if (mpLocker)
        mpLocker->doUnlock();
}

cLocker::cUnlock::cUnlock(cUnlockRef const& ref) : cUnlock(ref.locker) { }

cLocker::cUnlock::~cUnlock()
{
    if (mpLocker)
        mpLocker->doLock();
}

cLocker::cLocker() : mpMutex(npi::cPlatform::createMutexImpl()) { }

cLocker::cLocker(cLocker const&) noexcept { }

cLocker& cLocker::operator=(cLocker const&) noexcept
{
    return *this;
}

cLocker::~cLocker() = default;

void cLocker::doLock()
{
    mutexImpl().lock();
}

bool cLocker::doTryLock()
{
    return mutexImpl().tryLock();
}

void cLocker::doUnlock()
{
    mutexImpl().unlock();
}

npi::cAbstractMutexImpl& cLocker::mutexImpl() const
{
    if (!mpMutex)
        cSTDExceptions::throwUnsupportedOperation("cLocker::lock()");
    return *mpMutex;
}

} // namespace np
