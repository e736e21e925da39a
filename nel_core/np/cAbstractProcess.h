#pragma once

#include "nel_core/export.h"
#include "nel_core/np/fwd.h"
#include "nel_core/std/tAutoPtr.h"

namespace np {

/// Work in steps that can be cancelled; its state is kept apart, in a cAbstractProcessData that others share.
class NEL_EXPORT cAbstractProcess {
public:
    /// What a process is driven by.
    enum Context : unsigned int {
        ctxUnbound = 0,
        ctxPollable = 1, ///< somebody calls process() again and again
        ctxRunnable = 2, ///< a thread
    };

    /// Makes and owns a cBasicProcessData.
    cAbstractProcess();
    /// Uses `data`, which must outlive the process.
    explicit cAbstractProcess(cAbstractProcessData& data);
    /// Unbinds the data.
    virtual ~cAbstractProcess();
    cAbstractProcess(cAbstractProcess const&) = delete;
    cAbstractProcess& operator=(cAbstractProcess const&) = delete;

    /// Does one step of the work.
    virtual void process() = 0;
    /// The process as a pollable, or null.
    virtual cAbstractPollable* isPollable() = 0;
    /// The process as a runnable, or null.
    virtual cAbstractRunnable* isRunnable() = 0;
    /// Asks a process that runs elsewhere to pause, or to go on.
    virtual void interrupt(bool pause) = 0;

    cAbstractProcessData& processData() const { return *mpData; }
    bool isRunning() const;
    bool isFinished() const;

private:
    nstd::tAutoPtr<cAbstractProcessData> mpOwnData; ///< null when the data was given
    cAbstractProcessData* mpData;
};

} // namespace np
