#include "nel_core/pi/cWork.h"

#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWqDebug.h"
#include "nel_core/pi/workChanges.h"
#include "nel_core/pi/workTime.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/raise.h"

namespace npi {
namespace {

template<typename Signal>
Signal& madeOnFirstUse(nstd::tAutoPtr<Signal>& signal)
{
    if (!signal) {
        signal.reset(new Signal, nstd::tAutoPtrType::ptObject);
        signal->setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    }
    return *signal;
}

// The graph is a courtesy: the walk along the handlers goes on without it.
void writeGraph()
{
    try {
        system().debug << cWqDebug::dot(nullptr) << "\n";
    } catch (...) {
        cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "The graph of works could not be written!";
    }
}

// Runs slots on the way out of a destructor.
template<typename Emission>
void reportingFailures(Emission emission) noexcept
try {
    try {
        emission();
    } catch (nstd::cAbstractException const& error) {
        error.dump();
    }
} catch (...) {
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "An exception has escaped from a slot of a dying work!";
}

} // namespace

cWork::cWork() : mScheduledTime(0ULL), mPlannedTime(0ULL), mTreeNode(this)
{
    sigAction.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    sigChanged.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
}

cWork::~cWork()
{
    for (cLife* life = mpLives; life; life = life->mpOuter)
        life->mpWork = nullptr;
    mpLives = nullptr;
    mTreeNode.unlinkAndReparentChildren();
    mpSigActionError.reset(nullptr, nstd::tAutoPtrType::ptObject);
    mpAIOData.reset(nullptr, nstd::tAutoPtrType::ptObject);
    setStarted(false);
    tellOfDestruction();
}

void cWork::action()
{
    cLife const life(*this);
    mStatistic.notifyTrigger();
    try {
        sigAction();
        if (life)
            miFailures = 0;
    } catch (nstd::cAbstractException const& error) {
        if (!life || !handleActionError(error, false))
            throw;
    } catch (...) {
        if (!life)
            throw;
        nstd::cRuntimeException const error(nstd::makeMessage("$MTR$Error performing work %name%!", msName),
                                            nullptr, 0);
        if (!handleActionError(error, false))
            throw;
    }
}

void cWork::start()
{
    internRestart(true);
}

void cWork::start(unsigned int interval, Type type)
{
    internRestart(interval, type != SingleTask, true);
}

void cWork::stop()
{
    setStarted(false);
    sigChanged(this);
}

void cWork::setAIOData(nstd::tAutoPtr<cAbstractAIOData> data)
{
    if (data || mpAIOData)
        setStarted(static_cast<bool>(data));
    meType = AsynchronousIO;
    noteWorkChange();
    mpAIOData = data;
    sigChanged(this);
}

bool cWork::handleActionError(nstd::cAbstractException const& error, bool)
{
    if (!mbDelegateExceptions)
        return false;
    ++miFailures;
    for (cWork* work = this; work; work = work->parent()) {
        cLife const life(*work);
        if (work->offerError(error, work != this))
            return true;
        if (!life)
            return false;
    }
    return false;
}

void cWork::reparent(cWork* parent)
{
    mTreeNode.setParent(parent ? &parent->mTreeNode : nullptr);
}

cAbstractAIOData& cWork::aioData() const
{
    if (!mpAIOData)
        nstd::raiseBug(nstd::makeMessage("$MTR$Work does not own asynchronous I/O data!"));
    return *mpAIOData;
}

cWork::tDestroyedSignal& cWork::sigDestroyed()
{
    return madeOnFirstUse(mpSigDestroyed);
}

cWork::tActionErrorSignal& cWork::sigActionError()
{
    return madeOnFirstUse(mpSigActionError);
}

void cWork::internRestart(bool isExplicit)
{
    mStatistic.notifyStart();
    if (isExplicit)
        miFailures = 0;
    planAndTell(miInterval);
}

void cWork::internRestart(unsigned int interval, bool periodic, bool)
{
    mStatistic.notifyStart();
    miFailures = 0;
    miInterval = periodic ? interval : 0;
    meType = periodic ? Periodic : SingleTask;
    planAndTell(interval);
}

void cWork::setStarted(bool isStarted)
{
    mbStarted = isStarted;
    if (mPlace.queue)
        mPlace.node->setFlag(!isStarted);
    noteWorkChange();
}

void cWork::planAndTell(unsigned int interval)
{
    mScheduledTime = nstd::cTime();
    mPlannedTime = mScheduledTime + static_cast<long long>(interval) * 1000;
    setStarted(true);
    sigChanged(this);
}

long long cWork::dueIn(nstd::cTime const& now, unsigned long long step)
{
    if (mScheduledTime.get() > now.get() + step) {
        mPlannedTime = nstd::cTime(now.get() + (mPlannedTime.get() - mScheduledTime.get()));
        mScheduledTime = now;
    }
    return millisecondsUntil(mPlannedTime, now);
}

// True when a handler has returned normally; the work may be gone then, and also when it has not.
bool cWork::offerError(nstd::cAbstractException const& error, bool isFromDescendant)
{
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "  * Checking handler in " << msName;
    if (!mpSigActionError || !mpSigActionError->isConnected())
        return false;
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "  * Handler found in " << msName;
    try {
        (*mpSigActionError)(error, isFromDescendant);
        return true;
    } catch (...) {
        writeGraph();
        cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "  --------> exception in handler - try next...";
    }
    return false;
}

void cWork::tellOfDestruction()
{
    reportingFailures([this] { sigChanged(this); });
    if (mpSigDestroyed)
        reportingFailures([this] { (*mpSigDestroyed)(*this); });
}

} // namespace npi
