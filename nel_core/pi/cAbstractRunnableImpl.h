#pragma once

#include "nel_core/export.h"

namespace npi {

/// A thread of the platform; np::cAbstractRunnable is its portable face.
class NEL_EXPORT cAbstractRunnableImpl {
public:
    cAbstractRunnableImpl() = default;
    virtual ~cAbstractRunnableImpl();
    cAbstractRunnableImpl(cAbstractRunnableImpl const&) = delete;
    cAbstractRunnableImpl& operator=(cAbstractRunnableImpl const&) = delete;

    /// Ends an earlier run with stop() and starts the thread.
    virtual void start() = 0;
    /// Waits until the thread has ended; nothing makes it end.
    virtual void stop() = 0;
};

} // namespace npi
