#pragma once

#include "nel_core/export.h"
#include "nel_core/np/fwd.h"
#include "nel_core/std/tAutoPtr.h"

namespace np {

/// Work that runs in a thread of its own.
///
/// A derived class puts the work into run(), which looks at isStopInProgress() and returns when it is true:
/// stopping means to ask and to wait, there is no cancellation. The destructor of the most derived class
/// calls stop() first, because the thread must not outlive the members that run() uses. start(), stop() and
/// the destructor belong to one thread, the owner; the queries may be called from any.
///
/// What escapes from run() is reported on the debug output and ends the run.
class NEL_EXPORT cAbstractRunnable {
public:
    enum State : unsigned int {
        stNeverStarted = 0,
        stStarting = 1,       ///< start() was called, the thread does not run yet
        stRunning = 2,        ///< the thread is in run()
        stStopInProgress = 3, ///< stop() was called, run() should return
        stFinished = 4,       ///< run() has returned
    };

    cAbstractRunnable();
    /// A runnable cannot be copied: throws the int 12.
    cAbstractRunnable(cAbstractRunnable const& other);
    /// A runnable cannot be assigned: throws the int 12.
    cAbstractRunnable& operator=(cAbstractRunnable const& other);
    /// Calls stop(); what escapes from it ends the process. Not to be called inside the own run().
    virtual ~cAbstractRunnable();

    /// The work; does nothing in the base.
    virtual void run();

    /// Runs run() in a new thread. An earlier run is stopped first. Raises nstd::cOSErrorException when no
    /// thread can be made (the state is stStarting then), an unsupported operation inside the own run().
    void start();
    /// Asks run() to return and waits until it has; the state is stFinished then, or stStopInProgress when
    /// there was no thread. Inside the own run() it only asks.
    void stop();

    State state() const;
    /// Whether it is starting, running, or asked to stop.
    bool isActive() const;
    bool isRunning() const;
    bool isStopInProgress() const;

private:
    class cImpl;

    nstd::tAutoPtr<cImpl> mpImpl;
};

} // namespace np
