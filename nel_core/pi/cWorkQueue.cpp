#include "nel_core/pi/cWorkQueue.h"

#include <algorithm>
#include <climits>

#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/piStackTrace.h"
#include "nel_core/pi/workChanges.h"
#include "nel_core/pi/workTime.h"
#include "nel_core/std/cAsciiStringStream.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/raise.h"

namespace npi {
namespace {

constexpr unsigned int kTraceDepth = 128;
constexpr unsigned int kActiveGrowStep = 10;       // by 1024 entries
constexpr unsigned int kActiveSpare = 1024;        // entries of room that are kept
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

// Makes a work the current one while its handlers run, which may delete it or take it out of the queue.
class cWorkQueue::cCurrent {
public:
    cCurrent(cWorkQueue& queue, cWork& work) : mQueue(queue), mLife(work), mpOuter(queue.mpCurrent)
    {
        queue.mpCurrent = this;
    }
    cCurrent(cCurrent const&) = delete;
    cCurrent& operator=(cCurrent const&) = delete;
    ~cCurrent() { mQueue.mpCurrent = mpOuter; }

    cWork* work() const { return mbForgotten ? nullptr : mLife.work(); }
    cCurrent* outer() const { return mpOuter; }
    void forget() { mbForgotten = true; }

private:
    cWorkQueue& mQueue;
    cWork::cLife const mLife;
    cCurrent* const mpOuter;
    bool mbForgotten = false;
};

// A running pass with its repetitions. When it is nested, the one around it must look again at what has
// changed.
class cWorkQueue::cLevel {
public:
    explicit cLevel(cWorkQueue& queue) : mQueue(queue) { ++queue.miLevel; }
    cLevel(cLevel const&) = delete;
    cLevel& operator=(cLevel const&) = delete;
    ~cLevel() { mQueue.mbRerun = --mQueue.miLevel != 0; }

private:
    cWorkQueue& mQueue;
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
    maActive.setFitOnErase(false);
}

cWorkQueue::~cWorkQueue()
{
    mbDying = true;
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
    try {
        sltNotifyWorkChanged(nullptr);
    } catch (...) { // what an asynchronous processor has raised
        if (work)
            removeJob(*work);
        throw;
    }
}

nstd::tSharedObject<cWork> cWorkQueue::createJob()
{
    nstd::tSharedObject<cWork> const work(new cWork);
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
    cLevel const level(*this);
    unsigned int result = 0;
    bool triggering = trigger;
    do {
        mbRerun = false;
        result = internProcess(triggering);
        triggering = false;
    } while (mbRerun && mpEvents); // which a handler may have taken away
    if (timeout)
        *timeout = result;
    return (miTimed != 0 && result != 0) || miIO != 0;
}

unsigned int cWorkQueue::internProcess(bool trigger)
{
    assertEventObject();
    cPass pass(trigger, mpEvents->supportsAIO());
    {
        cCount const walk(miWalks);
        visitActive(pass);
    }
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

cWork* cWorkQueue::current() const
{
    return mpCurrent ? mpCurrent->work() : nullptr;
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
    if (mbDying)
        cSTDExceptions::throwUnsupportedOperation("cWorkQueue::addJob()");
    tNode* entry = nullptr;
    try {
        work.sigChanged.connect(nrmi::slot(this, &cWorkQueue::sltNotifyWorkChanged));
        entry = &appendEntry(handle);
        work.reparent(current());
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
    if (place.queue)
        place.node->setFlag(false); // nobody keeps several flags
    ++place.count;
    place.queue = place.count == 1 ? this : nullptr;
    place.node = entry;
    entry->setFlag(place.queue && !handle->isStarted());
    noteWorkChange();
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
    entry.setFlag(false);
    noteWorkChange();
    nstd::tSharedObject<cWork>& handle = entry.linkedElement()->element();
    cWork* const work = handle.get();
    if (!work) {
        handle = nstd::tSharedObject<cWork>();
        return;
    }
    if (work->isStarted())
        mbRerun = true; // a running pass has perhaps counted it
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
    for (cCurrent* running = mpCurrent; running; running = running->outer()) {
        if (running->work() == &work)
            running->forget();
    }
}

void cWorkQueue::mark(tNode& entry)
{
    if (entry.isEraseLater())
        return;
    entry.setEraseLater(true);
    mbMarked = true;
}

// A work is released before its entry goes, and only then the next entry is looked for: whatever dies finds a
// list that it may change. A work that was started again after it had been marked stays.
void cWorkQueue::purge()
{
    cCount const walk(miWalks);
    tNode* const end = mJobs.end().node();
    while (mbMarked) {
        mbMarked = false;
        for (tNode* at = mJobs.begin().node(); at != end;) {
            tNode& entry = *at;
            cWork const* const work = entry.linkedElement()->element().get();
            if (work && work->isStarted())
                entry.setEraseLater(false);
            bool const isLeaving = entry.isEraseLater();
            if (isLeaving)
                dropEntry(entry, false);
            at = entry.next();
            if (isLeaving) {
                noteWorkChange();
                mJobs.erase(&entry);
            }
        }
    }
}

// Visits the entries that are not idle. Which these are is remembered until a work of the thread changes: a
// turn of a queue in which thousands of works wait then touches no more memory than it must.
void cWorkQueue::visitActive(cPass& pass)
{
    bool const isKnown = miActiveKnown == workChanges();
    bool const isLasting = miChangesSeen == workChanges(); // what changes all the time is not worth it
    if (!isKnown && !(isLasting && tryFindActive())) {
        visitFrom(mJobs.begin().node(), pass);
        miChangesSeen = workChanges();
        return;
    }
    unsigned long long const known = miActiveKnown;
    for (unsigned int next = 0; next < maActive.length(); ++next) {
        tNode* const entry = maActive[next];
        visit(*entry, pass);
        if (workChanges() != known) {
            visitFrom(entry->next(), pass); // nothing leaves the list meanwhile
            return;
        }
    }
}

void cWorkQueue::visitFrom(tNode* entry, cPass& pass)
{
    for (tNode* const end = mJobs.end().node(); entry != end; entry = entry->next()) {
        if (!entry->isFlagged())
            visit(*entry, pass);
    }
}

// False when there is no memory for that.
bool cWorkQueue::tryFindActive() noexcept
try {
    maActive.truncate(0);
    maActive.setGrowStep(kActiveGrowStep);
    for (auto at = mJobs.begin(); at != mJobs.end(); ++at) {
        if (at.node()->isFlagged())
            continue;
        if (maActive.length() >> maActive.growStep() > 4) // a million must not be moved a thousand times
            maActive.setGrowStep(maActive.growStep() + 1);
        maActive.append(at.node());
    }
    if (maActive._poolSize() / 4 > maActive.length() + kActiveSpare)
        maActive.optimizeMemory();
    miActiveKnown = workChanges();
    return true;
} catch (...) {
    miActiveKnown = 0;
    return false;
}

void cWorkQueue::visit(tNode& entry, cPass& pass)
{
    cWork* const work = entry.linkedElement()->element().get();
    if (!work)
        mark(entry);
    else if (!work->isStarted())
        return;
    else if (work->type() != cWork::AsynchronousIO)
        visitTimed(entry, pass, work->dueIn(pass.now, kClockStep));
    else if (pass.supportsAIO)
        visitIO(entry, pass);
    else
        visitUnsupported(entry, pass);
}

void cWorkQueue::visitTimed(tNode& entry, cPass& pass, long long waitMs)
{
    ++pass.timed;
    if (pass.triggering && waitMs == 0)
        waitMs = trigger(entry, pass, pass.timed);
    pass.offerWait(waitMs);
}

// An event that cannot be acted on is left for the next pass.
void cWorkQueue::visitIO(tNode& entry, cPass& pass)
{
    ++pass.io;
    if (pass.triggering && takeEvent(*entry.linkedElement()->element()))
        trigger(entry, pass, pass.io);
}

// Without descriptors to wait for, the work becomes a periodic one that is due at once.
void cWorkQueue::visitUnsupported(tNode& entry, cPass& pass)
{
    nstd::tSharedObject<cWork> const& listed = entry.linkedElement()->element();
    listed->internRestart(listed->interval(), true, false);
    if (listed && listed->isStarted()) // slots of sigChanged may have seen to that
        visitTimed(entry, pass, 0);
}

// Runs a work and returns the milliseconds until it is due again. The copy of the handle keeps an owned work
// alive while slots and handlers run. The entry tells afterwards whether the work has left the queue or,
// added by reference, may be gone.
long long cWorkQueue::trigger(tNode& entry, cPass const& pass, unsigned int& count)
{
    nstd::tSharedObject<cWork>& listed = entry.linkedElement()->element();
    nstd::tSharedObject<cWork> const work(listed);
    long long waitMs = 0;
    if (work->type() != cWork::AsynchronousIO)
        work->markDone();
    if (work->type() == cWork::Periodic) {
        work->internRestart(false);
        if (listed)
            waitMs = millisecondsUntil(work->plannedTime(), pass.now);
    }
    if (listed)
        perform(*work);

    if (!listed || !(work->isStarted() || work->isKeep())) {
        mark(entry);
        --count;
    }
    return waitMs;
}

void cWorkQueue::perform(cWork& work)
{
    if (work.isAmuck()) {
        nucs::cLIMessage const message =
            nstd::makeMessage("$MTR$Stopping amuck work \"%name%\"!", work.name());
        work.stop();
        nstd::raiseBug(message);
    }
    cCurrent const running(*this, work);
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

} // namespace npi
