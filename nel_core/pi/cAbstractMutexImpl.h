#pragma once

#include "nel_core/export.h"

namespace npi {

/// A recursive mutex of the platform; np::cLocker is its portable face.
class NEL_EXPORT cAbstractMutexImpl {
public:
    cAbstractMutexImpl() = default;
    virtual ~cAbstractMutexImpl();
    cAbstractMutexImpl(cAbstractMutexImpl const&) = delete;
    cAbstractMutexImpl& operator=(cAbstractMutexImpl const&) = delete;

    /// Waits for the mutex and takes it.
    virtual void lock() = 0;
    /// Takes the mutex if no other thread holds it; says whether it did.
    virtual bool tryLock() = 0;
    /// Gives the mutex back once.
    virtual void unlock() = 0;
};

} // namespace npi
