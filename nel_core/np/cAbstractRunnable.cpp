#include "nel_core/np/cAbstractRunnable.h"

#include "nel_core/np/cLocker.h"
#include "nel_core/pi/cAbstractRunnableImpl.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/piAssert.h"

namespace np {
namespace {

// Tells on the debug output what has escaped from a run; null for something that is no framework exception.
void report(nstd::cAbstractException const* error) noexcept
try {
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "An exception has escaped from a runnable!";
    if (error)
        error->dump();
} catch (...) {
    return; // there is nobody left to tell
}

} // namespace

class cAbstractRunnable::cImpl {
public:
    static void thread(void* runnable);

    State state() const;
    void setState(State state);
    void requestStop() { setState(stStopInProgress); }
    bool isOwnThread() const { return tpCurrent == this; }

    State meState = stNeverStarted;
    mutable cLocker moStateLocker;
    nstd::tAutoPtr<npi::cAbstractRunnableImpl> mpThread;

private:
    static void runGuarded(cAbstractRunnable& runnable);
    void enterRun();

    static thread_local cImpl* tpCurrent; ///< whose run() this thread executes
};

thread_local cAbstractRunnable::cImpl* cAbstractRunnable::cImpl::tpCurrent = nullptr;

void cAbstractRunnable::cImpl::thread(void* argument)
{
    auto& runnable = *static_cast<cAbstractRunnable*>(argument);
    tpCurrent = runnable.mpImpl.get();
    tpCurrent->enterRun();
    runGuarded(runnable);
    tpCurrent->setState(stFinished);
}

void cAbstractRunnable::cImpl::runGuarded(cAbstractRunnable& runnable)
try {
    runnable.run();
} catch (nstd::cAbstractException const& error) {
    report(&error);
} catch (...) {
    report(nullptr);
}

// A stop that was requested before the thread came here stays in force.
void cAbstractRunnable::cImpl::enterRun()
{
    cLocker::cLock const lock(&moStateLocker);
    if (meState == stStarting)
        meState = stRunning;
}

cAbstractRunnable::State cAbstractRunnable::cImpl::state() const
{
    cLocker::cLock const lock(&moStateLocker);
    return meState;
}

void cAbstractRunnable::cImpl::setState(State state)
{
    cLocker::cLock const lock(&moStateLocker);
    meState = state;
}

cAbstractRunnable::cAbstractRunnable() : mpImpl(new cImpl) { }

cAbstractRunnable::cAbstractRunnable(cAbstractRunnable const&)
{
    throw 12;
}

cAbstractRunnable& cAbstractRunnable::operator=(cAbstractRunnable const&)
{
    throw 12;
}

cAbstractRunnable::~cAbstractRunnable()
{
    stop();
}

void cAbstractRunnable::run() { }

void cAbstractRunnable::start()
{
    if (mpImpl->isOwnThread())
        cSTDExceptions::throwUnsupportedOperation("cAbstractRunnable::start()");
    if (mpImpl->mpThread)
        stop();
    mpImpl->mpThread.reset(nullptr, nstd::tAutoPtrType::ptObject);
    mpImpl->setState(stStarting);

    auto thread = npi::cPlatform::createThread(&cImpl::thread, this);
    thread->start();
    mpImpl->mpThread = thread;
}

void cAbstractRunnable::stop()
{
    mpImpl->requestStop();
    if (mpImpl->isOwnThread() || !mpImpl->mpThread)
        return;
    mpImpl->mpThread->stop();
    mpImpl->setState(stFinished);
}

cAbstractRunnable::State cAbstractRunnable::state() const
{
    return mpImpl->state();
}

bool cAbstractRunnable::isActive() const
{
    auto const now = state();
    return now == stStarting || now == stRunning || now == stStopInProgress;
}

bool cAbstractRunnable::isRunning() const
{
    return state() == stRunning;
}

bool cAbstractRunnable::isStopInProgress() const
{
    return state() == stStopInProgress;
}

} // namespace np
