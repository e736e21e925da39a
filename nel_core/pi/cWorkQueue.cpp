#include "nel_core/pi/cWorkQueue.h"

#include <algorithm>
#include <climits>

#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/piStackTrace.h"
#include "nel_core/pi/workTime.h"
#include "nel_core/std/cAsciiStringStream.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/raise.h"

namespace npi {
namespace {

constexpr unsigned int kTraceDepth = 128;
constexpr unsigned int kIdleWait = 10000;          // milliseconds to wait for descriptors alone
constexpr unsigned int kCyclesWithoutWait = 64;    // in a row, before descriptors get their turn
constexpr unsigned long long kClockStep = 1000000; // microseconds back that count as a clock set anew

// Counts while it lives.
class cCount {
public:
    explicit cCount(unsigned int& counter) : mCounter(counter) { ++mCounter; }
    cCount(cCount const&) = delete;
    cCount& operator=(cCount const&) = delete;
    ~cCount() { --mCounter; }

private:
    unsigned int& mCounter;
};

bool takeEvent(cWork const& work)
{
    cAbstractAIOData* const data = work.hasAIOData();
    if (!data || !data->isEvent())
        return false;
    data->setEvent(false);
    return true;
}

void warnOfMissingName()
{
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "Work scheduled without name!";
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << piStackTrace(kTraceDepth);
}

nstd::cAsciiString descriptionOf(cWork const& work)
{
    nstd::cAsciiString text;
    switch (work.type()) {
    case cWork::Periodic: text << "Periodic (" << work.interval() << "ms interval)"; break;
    case cWork::AsynchronousIO: text << "Asynchronous I/O"; break;
    case cWork::SingleTask:
        text << "Single task (planned in " << millisecondsUntil(work.plannedTime(), nstd::cTime()) << "ms)";
        break;
    default: text << "unknown";
    }
    if (work.isStarted())
        text << " (scheduled)";
    if (work.isKeep())
        text << " (keep)";
    return text;
}

void dumpLine(char const* label, nstd::cAsciiString const& text)
{
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << label << text;
}

void dumpTime(char const* label, nstd::cTime const& time)
{
    dumpLine(label, nstd::cDateTime::formatString(time, "HH:MM:SS"));
}

void dumpWork(cWork& work)
{
    work.enableDebug();
    cWorkStat const& statistic = work.statistic();
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << " * Work (" << work.name() << ")";
    dumpLine("   * ", descriptionOf(work));
    cDebugEntry(NEL_SOURCE_TAG, __LINE__)
        << "   * Triggered: " << statistic.numTriggered() << " / numStarted: " << statistic.numStarted();
    if (cWorkStat::cDebugInfo const* const info = statistic.hasDebugInfo()) {
        if (statistic.numStarted() != 0)
            dumpTime("   * Last start at: ", info->lastStart());
        if (statistic.numTriggered() != 0)
            dumpTime("   * Last triggered: ", info->lastTriggered());
        dumpLine("", info->creationTrace());
    }
    dumpLine("", "");
}

} // namespace

// What a single pass finds out.
struct cWorkQueue::cPass {
    cPass(bool isTriggering, bool hasAIO) : triggering(isTriggering), supportsAIO(hasAIO) { }

    void offerWait(long long waitMs)
    {
        if (first || waitMs < timeout)
            timeout = waitMs;
        first = false;
    }
    unsigned int result() const
    {
        if (timed == 0 && io != 0)
            return kIdleWait;
        return static_cast<unsigned int>(std::min<long long>(timeout, INT_MAX));
    }

    bool const triggering;
    bool const supportsAIO;
    nstd::cTime const now;
    long long timeout = 0;
    bool first = true;
    unsigned int timed = 0;
    unsigned int io = 0;
};

// Makes a work the current one while its handlers run. The work that was current before may go meanwhile.
class cWorkQueue::cCurrent {
public:
    cCurrent(cWorkQueue& queue, cWork& work)
        : mQueue(queue),
          mpSaved(queue.mpCurrent),
          mpOuter(queue.mpCurrents)
    {
        queue.mpCurrent = &work;
        queue.mpCurrents = this;
    }
    cCurrent(cCurrent const&) = delete;
    cCurrent& operator=(cCurrent const&) = delete;
    ~cCurrent()
    {
        mQueue.mpCurrent = mpSaved;
        mQueue.mpCurrents = mpOuter;
    }

private:
    friend class cWorkQueue;

    cWorkQueue& mQueue;
    cWork* mpSaved;
    cCurrent* mpOuter;
};

// Keeps event processors that are replaced meanwhile until the outermost call into one has returned.
class cWorkQueue::cProcessorUse {
public:
    explicit cProcessorUse(cWorkQueue& queue) : mQueue(queue) { ++queue.miProcessorUses; }
    cProcessorUse(cProcessorUse const&) = delete;
    cProcessorUse& operator=(cProcessorUse const&) = delete;
    ~cProcessorUse()
    {
        if (--mQueue.miProcessorUses == 0)
            mQueue.maReplaced.destroyArray(true);
    }

private:
    cWorkQueue& mQueue;
};

cWorkQueue::cWorkQueue()
{
    maReplaced.setGuardMode(nstd::tPtrVector<cAbstractProcessEvents>::gmOwn);
}

cWorkQueue::~cWorkQueue()
{
    clear();
}

void cWorkQueue::addJob(cWork& work)
{
    if (!holds(work)) {
        work.sigDestroyed().connect(nrmi::slot(this, &cWorkQueue::sltWorkDestroyed));
        try {
            adopt(nstd::tSharedObject<cWork>(work));
        } catch (...) {
            disconnectFrom(work);
            throw;
        }
        work.setForceKeep(true);
    }
    sltNotifyWorkChanged(nullptr);
}

void cWorkQueue::addJob(nstd::tSharedObject<cWork> work)
{
    adopt(work);
    sltNotifyWorkChanged(nullptr);
}

nstd::tSharedObject<cWork> cWorkQueue::createJob()
{
    nstd::tSharedObject<cWork> work(new cWork);
    addJob(work);
    return work;
}

void cWorkQueue::removeJob(cWork const& work)
{
    dropEntriesOf(work, false);
}

void cWorkQueue::clear()
{
    if (mJobs.empty())
        return;
    cCount const clearing(miClearing);
    cCount const walk(miWalks);
    // What slots of dying works add stays.
    tNode* const last = mJobs.last().node();
    tNode* entry = mJobs.begin().node();
    dropEntry(*entry, false);
    while (entry != last) {
        entry = entry->next();
        dropEntry(*entry, false);
    }
}

void cWorkQueue::setEvents(nstd::tAutoPtr<cAbstractProcessEvents> events)
{
    if (events)
        events->sigFinished.connect(nrmi::slot(this, &cWorkQueue::sltNotifyPEFinished));
    else
        clear();
    if (mpEvents && miProcessorUses != 0) {
        maReplaced.append(mpEvents.get());
        mpEvents.release()->sigFinished.disconnect(*this);
    }
    mpEvents = events;
}

void cWorkQueue::process()
{
    if (!mpEvents)
        return;
    if (mpEvents->isAsynchronous()) {
        cProcessorUse const use(*this);
        mpEvents->poll();
    } else {
        processEvents(true);
    }
}

unsigned int cWorkQueue::processEvents(bool trigger)
{
    assertEventObject();
    unsigned int timeout = 0;
    bool const isWaitNeeded = updateTimer(trigger, &timeout);
    if (mpEvents && (isWaitNeeded || mpEvents->isAsynchronous()))
        wait(avoidStarvation(timeout));
    return miTimed + miIO;
}

bool cWorkQueue::updateTimer(bool trigger, unsigned int* timeout)
{
    cCount const level(miLevel);
    unsigned int result = 0;
    mbRerun = true;
    for (bool triggering = trigger; mbRerun; triggering = false) {
        mbRerun = false;
        result = internProcess(triggering);
    }
    if (timeout)
        *timeout = result;
    return (miTimed != 0 && result != 0) || miIO != 0;
}

unsigned int cWorkQueue::internProcess(bool trigger)
{
    assertEventObject();
    cPass pass(trigger, mpEvents->supportsAIO());
    for (auto at = mJobs.begin(); at != mJobs.end(); ++at)
        visit(*at.node(), pass);
    if (miLevel == 1 && miWalks == 0)
        purge();
    miTimed = pass.timed;
    miIO = pass.io;
    return pass.result();
}

void cWorkQueue::debugDump()
{
    dumpLine("WorkQueue status:", "");
    if (mpEvents)
        cDebugEntry(NEL_SOURCE_TAG, __LINE__)
            << "Have event object ("
            << (mpEvents->isAsynchronous() ? "asynchronous event processor" : "synchronous event processor")
            << ")";
    else
        dumpLine("No event processor!", "");
    dumpLine("", "");
    dumpLine("Tasks:", "");
    for (nstd::tSharedObject<cWork> const& job : mJobs) {
        if (job)
            dumpWork(*job);
        else
            dumpLine(" * zero item", "");
    }
}

piVoid cWorkQueue::sltWorkDestroyed(cWork const& work)
{
    dropEntriesOf(work, true);
    return piVoid();
}

piVoid cWorkQueue::sltNotifyWorkChanged(cWork*)
{
    if (miClearing != 0 || !mpEvents)
        return piVoid();
    if (miLevel == 0 && mpEvents->isAsynchronous()) {
        processEvents(false);
        return piVoid();
    }
    mbRerun = true;
    if (miLocalLoops >= miLevel)
        mpEvents->wakeUp();
    return piVoid();
}

piVoid cWorkQueue::sltNotifyPEFinished()
{
    if (!mpEvents)
        return piVoid();
    unsigned int timeout = 0;
    try {
        updateTimer(true, &timeout);
    } catch (...) {
        if (mpEvents && mpEvents->isAsynchronous())
            wait(0);
        throw;
    }
    if (mpEvents && mpEvents->isAsynchronous() && (miTimed != 0 || miIO != 0))
        wait(timeout);
    return piVoid();
}

void cWorkQueue::adopt(nstd::tSharedObject<cWork> const& handle)
{
    cWork& work = *handle;
    tNode* entry = nullptr;
    try {
        work.sigChanged.connect(nrmi::slot(this, &cWorkQueue::sltNotifyWorkChanged));
        entry = &appendEntry(handle);
        work.reparent(mpCurrent);
    } catch (...) {
        if (entry)
            dropEntry(*entry, false);
        else if (!holds(work))
            disconnectFrom(work);
        throw;
    }
}

cWorkQueue::tNode& cWorkQueue::appendEntry(nstd::tSharedObject<cWork> const& handle)
{
    mJobs.append(handle);
    tNode* const entry = mJobs.last().node();
    cWork::cPlace& place = handle->mPlace;
    ++place.count;
    place.queue = place.count == 1 ? this : nullptr;
    place.node = entry;
    return *entry;
}

bool cWorkQueue::holds(cWork const& work) const
{
    cWork::cPlace const& place = work.mPlace;
    if (place.count == 0 || place.queue)
        return place.queue == this;
    return std::any_of(mJobs.begin(), mJobs.end(), [&work](auto const& job) { return job.get() == &work; });
}

// A work that is destroyed is not released but found dead by everyone who has a handle on it.
void cWorkQueue::dropEntriesOf(cWork const& work, bool isDestroyed)
{
    forgetCurrent(work);
    cWork::cPlace const place = work.mPlace;
    if (place.count == 0)
        return;
    if (place.queue) {
        if (place.queue == this)
            dropEntry(*place.node, isDestroyed);
        return;
    }
    cCount const walk(miWalks);
    for (auto at = mJobs.begin(); at != mJobs.end(); ++at) {
        if (at->get() == &work)
            dropEntry(*at.node(), isDestroyed);
    }
}

void cWorkQueue::dropEntry(tNode& entry, bool isDestroyed)
{
    mark(entry);
    nstd::tSharedObject<cWork>& handle = entry.linkedElement()->element();
    cWork* const work = handle.get();
    if (!work) {
        handle = nstd::tSharedObject<cWork>();
        return;
    }
    if (--work->mPlace.count == 0)
        work->mPlace = cWork::cPlace();
    if (isDestroyed)
        handle.invalidateObject();
    cWork::cLife const life(*work);
    handle = nstd::tSharedObject<cWork>();
    if (!isDestroyed && life && !holds(*work))
        disconnectFrom(*work);
}

void cWorkQueue::disconnectFrom(cWork& work)
{
    work.sigChanged.disconnect(*this);
    if (work.mpSigDestroyed)
        work.mpSigDestroyed->disconnect(*this);
}

void cWorkQueue::forgetCurrent(cWork const& work)
{
    if (mpCurrent == &work)
        mpCurrent = nullptr;
    for (cCurrent* current = mpCurrents; current; current = current->mpOuter) {
        if (current->mpSaved == &work)
            current->mpSaved = nullptr;
    }
}

void cWorkQueue::mark(tNode& entry)
{
    if (entry.isEraseLater())
        return;
    entry.setEraseLater(true);
    mbMarked = true;
}

// Works are released before their entries go, so that whatever dies finds a list that it may change. A work
// that was started again after it had been marked stays.
void cWorkQueue::purge()
{
    if (!mbMarked)
        return;
    while (mbMarked) {
        mbMarked = false;
        cCount const walk(miWalks);
        for (auto at = mJobs.begin(); at != mJobs.end(); ++at) {
            if (!at.isEraseLater())
                continue;
            if (*at && (*at)->isStarted())
                at.cancelEraseLater();
            else
                dropEntry(*at.node(), false);
        }
    }
    mJobs.purge();
}

void cWorkQueue::visit(tNode& entry, cPass& pass)
{
    nstd::tSharedObject<cWork> const& handle = entry.linkedElement()->element();
    cWork* const work = handle.get();
    if (!work) {
        mark(entry);
        return;
    }
    if (!work->isStarted())
        return;

    bool isDue = false;
    bool isTimed = work->type() != cWork::AsynchronousIO;
    if (!isTimed && pass.supportsAIO) {
        isDue = pass.triggering && takeEvent(*work);
    } else if (!isTimed) {
        work->internRestart(work->interval(), true, false);
        if (!handle || !work->isStarted())
            return; // by a slot of sigChanged
        isTimed = isDue = true;
    } else {
        work->followClock(pass.now, kClockStep);
    }
    long long waitMs = isDue ? 0 : millisecondsUntil(work->plannedTime(), pass.now);
    if (isTimed && waitMs == 0)
        isDue = true;

    unsigned int& count = isTimed ? pass.timed : pass.io;
    ++count;
    if (pass.triggering && isDue)
        trigger(entry, pass, count, waitMs);
    if (isTimed)
        pass.offerWait(waitMs);
}

// The handle keeps an owned work alive while its handlers run. The entry tells afterwards whether the work
// has left the queue or, added by reference, is gone.
void cWorkQueue::trigger(tNode& entry, cPass& pass, unsigned int& count, long long& waitMs)
{
    nstd::tSharedObject<cWork>& listed = entry.linkedElement()->element();
    nstd::tSharedObject<cWork> const work(listed);
    if (work->type() != cWork::AsynchronousIO)
        work->markDone();
    if (work->type() == cWork::Periodic) {
        work->internRestart(false);
        if (work)
            waitMs = millisecondsUntil(work->plannedTime(), pass.now);
    }
    if (listed)
        perform(*work);

    bool const hasLeft = !listed;
    if (!hasLeft && (work->isStarted() || work->isKeep()))
        return;
    mark(entry);
    --count;
}

void cWorkQueue::perform(cWork& work)
{
    if (work.isAmuck()) {
        nucs::cLIMessage const message =
            nstd::makeMessage("$MTR$Stopping amuck work \"%name%\"!", work.name());
        work.stop();
        nstd::raiseBug(message);
    }
    cCurrent const current(*this, work);
    work.action();
}

void cWorkQueue::wait(unsigned int timeout)
{
    cProcessorUse const use(*this);
    mpEvents->yield(miLevel, mJobs, timeout);
}

// With a time-out of 0 no descriptor is looked at, so works that are always due would keep out all others.
unsigned int cWorkQueue::avoidStarvation(unsigned int timeout)
{
    bool const isSkipped = timeout == 0 && miIO != 0 && miCyclesWithoutWait < kCyclesWithoutWait;
    bool const isStarved = timeout == 0 && miIO != 0 && !isSkipped;
    miCyclesWithoutWait = isSkipped ? miCyclesWithoutWait + 1 : 0;
    return isStarved ? 1 : timeout;
}

void cWorkQueue::assertEventObject()
{
    if (mpEvents)
        return;
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "*** WORKQUEUE HAS BEEN FOUND A BUG ***";
    debugDump();
    cDebugEntry(NEL_SOURCE_TAG, __LINE__) << piStackTrace(kTraceDepth);
    nstd::raiseBug(nstd::makeMessage("$MTR$No process event manager for workqueue!"));
}

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
