#pragma once

#include <pthread.h>

#include "nel_core/export.h"
#include "nel_core/pi/cAbstractRunnableImpl.h"

namespace npi {

/// A POSIX thread.
class NEL_EXPORT cLinuxThreadImpl : public cAbstractRunnableImpl {
public:
    /// The thread will call `function` with `argument`.
    cLinuxThreadImpl(void (*function)(void*), void* argument);
    /// Waits for the thread.
    ~cLinuxThreadImpl() override;

    /// Raises nstd::cOSErrorException when the system refuses the thread.
    void start() override;
    void stop() override;

private:
    static void* trampoline(void* self);

    void (*mpFunction)(void*);
    void* mpArgument;
    pthread_t moThread;
    bool mbStarted = false;
};

} // namespace npi
