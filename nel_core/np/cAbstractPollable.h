#pragma once

#include "nel_core/export.h"
#include "nel_core/np/cAbstractProcess.h"

namespace np {

/// A process that somebody drives by calling process() again and again.
class NEL_EXPORT cAbstractPollable : public cAbstractProcess {
public:
    /// Binds `data`, which must outlive the process. Raises a bug, and leaves the binding as it is, when the
    /// data belongs to a process already.
    explicit cAbstractPollable(cAbstractProcessData& data);
    ~cAbstractPollable() override;

    cAbstractPollable* isPollable() override;
    cAbstractRunnable* isRunnable() override;
    /// Does nothing: a pollable runs only when it is called.
    void interrupt(bool pause) override;
};

} // namespace np
