#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/std/tAutoPtr.h"

namespace np {

/// A recursive mutex with scoped locks.
///
/// The thread that holds it may take it again and must give it back as often. lock(), tryLock() and unlock()
/// only name what is to be done; the scoped objects made from their results do it:
///
///     np::cLocker::cLock lock(locker.lock());         // waits; releases at the end of the scope
///     np::cLocker::cLock attempt(locker.tryLock());   // never waits; ask attempt.isLocked()
///     np::cLocker::cUnlock pause(locker.unlock());    // releases a held lock for the scope
class NEL_EXPORT cLocker {
public:
    /// What lock() and tryLock() hand to a cLock.
    struct cLockRef {
        cLocker* locker;
        bool tryOnly; ///< take the lock only if nobody else holds it
    };

    /// What unlock() hands to a cUnlock.
    struct cUnlockRef {
        cLocker* locker;
    };

    /// Holds a lock while it lives.
    class NEL_EXPORT cLock {
    public:
        /// Waits for the lock of `locker`, which must outlive this object; null locks nothing.
        explicit cLock(cLocker* locker);
        /// Waits for the lock, or only tries to take it, as `ref` says.
        explicit cLock(cLockRef const& ref);
        /// Releases what was taken. A failure to do so ends the process.
        ~cLock();
        cLock(cLock const&) = delete;
        cLock& operator=(cLock const&) = delete;

        /// False only when the lock was tried and somebody else holds it.
        [[nodiscard]] bool isLocked() const { return mbLocked; }

    private:
        cLocker* mpLocker;
        bool mbLocked;
    };

    /// Releases a held lock while it lives and takes it back at its end.
    class NEL_EXPORT cUnlock {
    public:
        /// Releases `locker`, which the caller holds; null does nothing.
        explicit cUnlock(cLocker* locker);
        explicit cUnlock(cUnlockRef const& ref);
        /// Waits for the lock. A failure to take it back ends the process.
        ~cUnlock();
        cUnlock(cUnlock const&) = delete;
        cUnlock& operator=(cUnlock const&) = delete;

    private:
        cLocker* mpLocker;
    };

    /// Makes its mutex through the platform.
    cLocker();
    /// A locker without mutex: every attempt to lock or unlock it raises an unsupported operation.
    cLocker(cLocker const& other) noexcept;
    /// Changes nothing: each locker keeps its own mutex.
    cLocker& operator=(cLocker const& other) noexcept;
    ~cLocker();

    /// Describes a lock that waits; locks nothing itself.
    [[nodiscard]] cLockRef lock() { return {this, false}; }
    /// Describes a lock that does not wait; locks nothing itself.
    [[nodiscard]] cLockRef tryLock() { return {this, true}; }
    /// Describes a release; releases nothing itself.
    [[nodiscard]] cUnlockRef unlock() { return {this}; }

    /// Waits for the mutex and takes it.
    void doLock();
    /// Takes the mutex if no other thread holds it; says whether it did.
    [[nodiscard]] bool doTryLock();
    /// Gives the mutex back once.
    void doUnlock();

private:
    npi::cAbstractMutexImpl& mutexImpl() const;

    nstd::tAutoPtr<npi::cAbstractMutexImpl> mpMutex; ///< null in a copy
};

} // namespace np
