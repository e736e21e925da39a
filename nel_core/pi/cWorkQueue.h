#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/cAbstractProcessEvents.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/slotCall.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tPtrVector.h"
#include "nel_core/std/tSharedObject.h"

namespace npi {

/// The main loop: triggers the works that are due, and waits in its event processor for the next ones.
///
/// Works that are added by reference stay their owner's, are kept while idle, and leave when they are
/// destroyed; works that come in a handle are shared with the queue and leave when they have run and are
/// idle. During a pass entries are only marked, so that handlers may add, remove and destroy works, the
/// running one included; a pass that is not nested in another ends with the removal. Everything runs on one
/// thread; nothing is locked.
class NEL_EXPORT cWorkQueue : public nrmi::cConnectable {
public:
    typedef nstd::tList<nstd::tSharedObject<cWork>> tJobs;

    /// Empty, without an event processor.
    cWorkQueue();
    /// Releases all entries. A work that a slot of a dying one adds now is refused as an unsupported
    /// operation.
    ~cWorkQueue() override;

    /// Adds a work that stays the caller's; one that is in the queue already stays where it is. The work
    /// becomes a child of the running one and is kept while idle.
    void addJob(cWork& work);
    /// Shares a work; raises a bug for an empty handle.
    void addJob(nstd::tSharedObject<cWork> work);
    /// Makes a work of the queue's own, not started.
    nstd::tSharedObject<cWork> createJob();
    /// Releases every entry of the work, which costs no search unless it has several.
    void removeJob(cWork const& work);
    /// Releases all entries.
    void clear();
    /// Replaces the event processor; null takes it away and clears the queue. One that is waiting at the
    /// moment is deleted when its wait has returned.
    void setEvents(nstd::tAutoPtr<cAbstractProcessEvents> events);

    /// Runs the loop once: one cycle, or the poll() of an asynchronous processor. Does nothing without a
    /// processor. Raises what a handler raised and nobody took, and a bug when a work is stopped because it
    /// failed three times in a row; the queue goes on with the next call.
    void process();
    /// One cycle: a pass and, if there is anything to wait for, a wait. `trigger` tells whether due works
    /// run. Returns the number of started works. Raises as process() does, and a bug without a processor.
    unsigned int processEvents(bool trigger);
    /// One pass, repeated without triggering while works change. Tells whether there is anything to wait
    /// for, and in `timeout` (may be null) for how many milliseconds.
    bool updateTimer(bool trigger, unsigned int* timeout);
    /// A single pass over all works; returns the milliseconds until the next one is due.
    unsigned int internProcess(bool trigger);
    /// Writes the state of the queue and of each work to the debug output, and enables the debugging of
    /// every work.
    void debugDump();

    /// The entries in the order of scheduling, for reading; those of works that left are empty.
    tJobs& jobs() { return mJobs; }
    tJobs const& jobs() const { return mJobs; }
    /// How many passes are running, one inside the other.
    unsigned int level() const { return miLevel; }
    /// The work whose handlers are running, null when there is none.
    cWork* current() const;

    /// Connected to the works and to the event processor.
    piVoid sltWorkDestroyed(cWork const& work);
    piVoid sltNotifyWorkChanged(cWork* work);
    piVoid sltNotifyPEFinished();

private:
    friend class cLocalEventLoop;
    struct cPass;
    class cCurrent;
    class cLevel;
    class cProcessorUse;
    typedef tJobs::nodeType tNode;

    void adopt(nstd::tSharedObject<cWork> const& handle);
    tNode& appendEntry(nstd::tSharedObject<cWork> const& handle);
    bool holds(cWork const& work) const;
    void dropEntriesOf(cWork const& work, bool isDestroyed);
    void dropEntry(tNode& entry, bool isDestroyed);
    void disconnectFrom(cWork& work);
    void forgetCurrent(cWork const& work);
    void mark(tNode& entry);
    void purge();

    void visitActive(cPass& pass);
    void visitFrom(tNode* entry, cPass& pass);
    bool tryFindActive() noexcept;
    void visit(tNode& entry, cPass& pass);
    void visitTimed(tNode& entry, cPass& pass, long long waitMs);
    void visitIO(tNode& entry, cPass& pass);
    void visitUnsupported(tNode& entry, cPass& pass);
    long long trigger(tNode& entry, cPass const& pass, unsigned int& count);
    void perform(cWork& work);
    void wait(unsigned int timeout);
    unsigned int avoidStarvation(unsigned int timeout);
    void assertEventObject();

    nstd::tAutoPtr<cAbstractProcessEvents> mpEvents;
    tJobs mJobs;
    unsigned int miLevel = 0;
    bool mbRerun = false;
    unsigned int miLocalLoops = 0;
    unsigned int miClearing = 0;
    cCurrent* mpCurrent = nullptr; ///< the innermost running work
    unsigned int miTimed = 0;
    unsigned int miIO = 0;

    nstd::tArray<tNode*> maActive;        ///< the entries that are not idle, in their order
    unsigned long long miActiveKnown = 0; ///< the workChanges() for which they are; 0: not known
    unsigned long long miChangesSeen = 0; ///< the workChanges() at the end of the last full look
    bool mbMarked = false;                ///< entries wait for the next purge
    unsigned int miWalks = 0;             ///< walks that a purge must not disturb
    bool mbDying = false;                 ///< no work is taken any more
    unsigned int miCyclesWithoutWait = 0; ///< in a row, while there are I/O works
    unsigned int miProcessorUses = 0;     ///< calls into event processors that have not returned
    nstd::tPtrVector<cAbstractProcessEvents> maReplaced; ///< owned; deleted when no processor is in use
};

/// Adds `work`, which stays the caller's, to the system's queue, and returns it.
NEL_EXPORT cWork& schedule(cWork& work);
/// Hands `work` over to the system's queue.
NEL_EXPORT nstd::tSharedObject<cWork> schedule(nstd::tAutoPtr<cWork> work);
/// Lets the system's queue call a slot once, in `interval` milliseconds. The name is for people; null writes
/// a warning to the debug output.
NEL_EXPORT nstd::tSharedObject<cWork> schedule(nrmi::cAbstractSlotCall0<piVoid> const& slot,
                                               unsigned int interval, char const* name);
/// The same with a type: cWork::Periodic calls the slot every `interval` milliseconds.
NEL_EXPORT nstd::tSharedObject<cWork> schedule(nrmi::cAbstractSlotCall0<piVoid> const& slot,
                                               unsigned int interval, cWork::Type type, char const* name);
/// Removes `work` from the system's queue.
NEL_EXPORT void unschedule(cWork& work);

} // namespace npi
