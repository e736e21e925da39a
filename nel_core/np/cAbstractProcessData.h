#pragma once

#include "nel_core/export.h"
#include "nel_core/np/cAbstractProcess.h"

namespace np {

/// The state that a process shares with those who watch or cancel it.
///
/// The flags are read and written under the context locker that setContext() installed; without one they
/// belong to a single thread. Lockers are not owned and must outlive their use here.
class NEL_EXPORT cAbstractProcessData {
public:
    typedef cAbstractProcess::Context Context;

    /// Unbound; `owner` is the locker of the object that owns the data, or null.
    explicit cAbstractProcessData(cLocker* owner);
    virtual ~cAbstractProcessData();
    cAbstractProcessData(cAbstractProcessData const&) = delete;
    cAbstractProcessData& operator=(cAbstractProcessData const&) = delete;

    /// Begins a run: neither finished nor cancelled, but running. Leaves lines on the debug output.
    virtual void restart();

    /// The locker given to the constructor.
    cLocker* ownerLocker() const { return mpOwnerLocker; }
    /// How the data is bound.
    Context context() const { return meContext; }
    /// Binds the data, or unbinds it. The first locker guards the flags from now on.
    void setContext(Context context, cLocker* contextLocker, cLocker* secondContextLocker);
    Context preferredContext() const { return mePreferredContext; }
    void setPreferredContext(Context context);

    bool isCanceled() const;
    /// Asks the process to end.
    void cancel();
    bool isFinished() const;
    /// Ends the run.
    void setFinished();
    bool isRunning() const;

private:
    cLocker* mpOwnerLocker;
    cLocker* mpContextLocker = nullptr;
    cLocker* mpSecondContextLocker = nullptr;
    Context meContext = cAbstractProcess::ctxUnbound;
    Context mePreferredContext = cAbstractProcess::ctxRunnable;
    bool mbCanceled = false;
    bool mbFinished = false;
    bool mbRunning = false;
};

} // namespace np
