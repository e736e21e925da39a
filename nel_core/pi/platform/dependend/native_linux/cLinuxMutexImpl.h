#pragma once

#include <pthread.h>

#include "nel_core/export.h"
#include "nel_core/pi/cAbstractMutexImpl.h"

namespace npi {

/// A recursive POSIX mutex.
class NEL_EXPORT cLinuxMutexImpl : public cAbstractMutexImpl {
public:
    cLinuxMutexImpl();
    ~cLinuxMutexImpl() override;

    void lock() override;
    bool tryLock() override;
    void unlock() override;

private:
    pthread_mutex_t moMutex;
};

} // namespace npi
