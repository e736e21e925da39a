#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/cAbstractAIOData.h"
#include "nel_core/pi/cWorkStat.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cTime.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tParentWatch.h"

namespace npi {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wclass-conversion" // of operator void()

/// Something that a work queue does: once after a delay, periodically, or when a descriptor is ready.
///
/// The slots of sigAction are its handlers. A work becomes active by start() or setAIOData() while it is in a
/// queue (npi::schedule()); the queue triggers it when it is due. Works form a tree: what is scheduled by a
/// handler becomes a child of the running work, and an exception that escapes the handlers is offered to the
/// action-error handlers of the work and then of its ancestors. A handler may do anything to its work, delete
/// it included.
class NEL_EXPORT cWork {
public:
    enum Type : unsigned int {
        SingleTask = 0,    ///< due once
        Periodic = 1,      ///< due after every interval
        AsynchronousIO = 2 ///< due when its I/O data says so
    };

    typedef nrmi::localSignal2<piVoid, nstd::cAbstractException const&, bool> tActionErrorSignal;
    typedef nrmi::localSignal1<piVoid, cWork const&> tDestroyedSignal;

    /// The handlers.
    nrmi::localSignal0<piVoid> sigAction;
    /// Emitted with the work when its scheduling changes: start, stop, new I/O data, destruction.
    nrmi::localSignal1<piVoid, cWork*> sigChanged;

    /// Idle, without name, parent, interval and data.
    cWork();
    cWork(cWork const&) = delete;
    cWork& operator=(cWork const&) = delete;
    /// The children become those of the parent; then sigChanged and sigDestroyed() are emitted. What a slot
    /// of these raises is written to the debug output.
    virtual ~cWork();

    /// Runs the handlers, with statistics and delegation of exceptions. Raises what no action-error handler
    /// has taken. A work that the handlers delete is not touched any more.
    virtual void action();

    /// Starts with the current type and interval; the failures so far are forgotten.
    void start();
    /// Starts a single task that is due in `interval` milliseconds; any other type becomes periodic with that
    /// interval.
    void start(unsigned int interval, Type type);
    /// Becomes idle and emits sigChanged.
    void stop();
    /// Becomes idle without a signal.
    void markDone() { setStarted(false); }
    /// Makes this an asynchronous I/O work that waits for `data`, and starts it; null takes the data away,
    /// which stops it. The former data is deleted.
    void setAIOData(nstd::tAutoPtr<cAbstractAIOData> data);

    /// Emits sigAction and nothing else; written `work.operator void()`, or shorter `work()`.
    operator void() { sigAction(); }
    piVoid operator()() { return sigAction(); }

    /// Offers an exception to the action-error handlers of this work and then of its ancestors; true when
    /// one has taken it by returning normally. The second argument has no effect.
    bool handleActionError(nstd::cAbstractException const& error, bool);
    /// Leaves the old parent and becomes the last child of `parent`, null for none. Nothing happens when that
    /// is this work or one of its descendants.
    void reparent(cWork* parent);
    /// Records from now on when and from where the work is started; slow.
    void enableDebug() { mStatistic.setDebug(true); }

    /// When the work was last started.
    nstd::cTime const& scheduledTime() const { return mScheduledTime; }
    /// When it is due.
    nstd::cTime const& plannedTime() const { return mPlannedTime; }
    Type type() const { return meType; }
    /// The period of a periodic work in milliseconds.
    unsigned int interval() const { return miInterval; }
    bool isStarted() const { return mbStarted; }
    /// Whether an idle work stays in its queue whatever its type.
    bool isForceKeep() const { return mbForceKeep; }
    void setForceKeep(bool keep) { mbForceKeep = keep; }
    /// Whether the work stays in its queue when it is idle after it has run.
    bool isKeep() const { return mbForceKeep || meType == Periodic || meType == AsynchronousIO; }
    /// Whether the handlers have failed so often in a row (three times) that the queue will stop the work.
    bool isAmuck() const { return miFailures > kFailureLimit; }
    /// The I/O data, null when there is none; owned by the work.
    cAbstractAIOData* hasAIOData() const { return mpAIOData.get(); }
    /// The I/O data; raises a bug when there is none.
    cAbstractAIOData& aioData() const;
    nstd::cAsciiString const& name() const { return msName; }
    void setName(nstd::cAsciiString const& name) { msName = name; }
    void setName(nstd::cAsciiString&& name) noexcept { msName.swap(name); }
    void setName(char const* name) { setName(nstd::cAsciiString(name)); }
    cWorkStat& statistic() { return mStatistic; }
    cWorkStat const& statistic() const { return mStatistic; }
    cWork* parent() const { return mTreeNode.parent(); }
    /// Whether exceptions of the handlers are offered to action-error handlers.
    bool isDelegateExceptions() const { return mbDelegateExceptions; }
    void setDelegateExceptions(bool delegate) { mbDelegateExceptions = delegate; }

    /// Emitted by the destructor; made on first use.
    tDestroyedSignal& sigDestroyed();
    /// The action-error handlers, called with the exception and whether it comes from a descendant; made on
    /// first use.
    tActionErrorSignal& sigActionError();

private:
    friend class cWorkQueue;

    // Tells code that calls handlers whether the work still lives; on the stack, linked to those outside.
    class cLife {
    public:
        explicit cLife(cWork& work) : mpWork(&work), mpOuter(work.mpLives) { work.mpLives = this; }
        cLife(cLife const&) = delete;
        cLife& operator=(cLife const&) = delete;
        ~cLife()
        {
            if (mpWork)
                mpWork->mpLives = mpOuter;
        }
        explicit operator bool() const { return mpWork != nullptr; }
        cWork* work() const { return mpWork; }

    private:
        friend class cWork;

        cWork* mpWork; ///< null once the work is gone
        cLife* mpOuter;
    };

    // Where the work stands in its queue, so that it is found without a search.
    struct cPlace {
        cWorkQueue* queue = nullptr; ///< null: in none, or in more than one place
        nstd::tListNodeBaseType<nstd::tSharedObject<cWork>>* node = nullptr;
        unsigned int count = 0; ///< the entries that hold the work
    };

    static constexpr unsigned int kFailureLimit = 2;

    // The entry in the queue is flagged while the work is idle, so that passes need not look at the work.
    void setStarted(bool isStarted);

    /// `isExplicit` tells an application's start, which resets the failures, from a queue's re-planning.
    void internRestart(bool isExplicit);
    void internRestart(unsigned int interval, bool periodic, bool);
    void planAndTell(unsigned int interval);
    /// The milliseconds until the work is due. When the clock was set back by more than `step` microseconds,
    /// the time that was left counts on from now.
    long long dueIn(nstd::cTime const& now, unsigned long long step);
    bool offerError(nstd::cAbstractException const& error, bool isFromDescendant);
    void tellOfDestruction();

    nstd::tAutoPtr<tDestroyedSignal> mpSigDestroyed;
    nstd::cTime mScheduledTime;
    nstd::cTime mPlannedTime;
    Type meType = SingleTask;
    unsigned int miInterval = 0;
    bool mbStarted = false;
    bool mbForceKeep = false;
    nstd::tAutoPtr<cAbstractAIOData> mpAIOData;
    nstd::tAutoPtr<tActionErrorSignal> mpSigActionError;
    nstd::cAsciiString msName;
    cWorkStat mStatistic;
    unsigned int miFailures = 0;
    nstd::tParentWatch<cWork> mTreeNode;
    bool mbDelegateExceptions = true;
    cLife* mpLives = nullptr;
    cPlace mPlace;
};

#pragma GCC diagnostic pop

} // namespace npi
