#include "nel_core/np/cLocker.h"

#include <gtest/gtest.h>

#include <thread>

#include "nel_core/np/cSynchronizable.h"
#include "nel_core/std/cBugException.h"
#include "tests/support/raisedBy.h"

namespace {

using np::cLocker;

// Whether another thread could take the lock now.
bool isFree(cLocker& locker)
{
    bool isLocked = false;
    std::thread([&] {
        cLocker::cLock const attempt(locker.tryLock());
        isLocked = attempt.isLocked();
    }).join();
    return isLocked;
}

TEST(cLockerTest, itIsFreeOnceEveryLockOfAThreadIsGivenBack)
{
    cLocker locker;
    EXPECT_TRUE(isFree(locker));
    {
        cLocker::cLock const outer(locker.lock());
        {
            cLocker::cLock const inner(&locker);
            cLocker::cLock const innermost(locker.tryLock());
            EXPECT_TRUE(outer.isLocked() && inner.isLocked() && innermost.isLocked());
            EXPECT_FALSE(isFree(locker));
        }
        EXPECT_FALSE(isFree(locker));
    }
    EXPECT_TRUE(isFree(locker));
}

TEST(cLockerTest, describingAnOperationDoesNotPerformIt)
{
    cLocker locker;
    auto const lock = locker.lock();
    auto const tryLock = locker.tryLock();
    EXPECT_TRUE(isFree(locker));
    EXPECT_FALSE(lock.tryOnly);
    EXPECT_TRUE(tryLock.tryOnly);

    cLocker::cLock const held(lock);
    auto const unlock = locker.unlock();
    EXPECT_EQ(unlock.locker, &locker);
    EXPECT_FALSE(isFree(locker));
}

TEST(cLockerTest, aFailedAttemptReleasesNothing)
{
    cLocker locker;
    cLocker::cLock const held(locker.lock());
    EXPECT_FALSE(isFree(locker)); // its attempt has ended by now
    EXPECT_FALSE(isFree(locker));
}

TEST(cLockerTest, anUnlockReleasesForItsScope)
{
    cLocker locker;
    cLocker::cLock const held(locker.lock());
    {
        cLocker::cUnlock const pause(locker.unlock());
        EXPECT_TRUE(isFree(locker));
    }
    EXPECT_FALSE(isFree(locker));
    {
        cLocker::cUnlock const pause(&locker);
        EXPECT_TRUE(isFree(locker));
    }
    EXPECT_FALSE(isFree(locker));
}

TEST(cLockerTest, nullLocksNothing)
{
    cLocker* const none = nullptr;
    cLocker::cLock const lock(none);
    cLocker::cUnlock const unlock(none);
    EXPECT_FALSE(lock.isLocked());
}

TEST(cLockerTest, aLockKeepsThreadsApart)
{
    constexpr int kRounds = 20000;
    cLocker locker;
    int count = 0;
    auto const work = [&] {
        for (int i = 0; i < kRounds; ++i) {
            cLocker::cLock const lock(locker.lock());
            ++count;
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(count, 2 * kRounds);
}

TEST(cLockerTest, aCopyHasNoMutexAndAnAssignedLockerKeepsItsOwn)
{
    cLocker locker;
    cLocker copy(locker);
    struct {
        char const* name;
        void (*call)(cLocker&);
    } const calls[] = {
        {"lock", [](cLocker& l) { l.doLock(); }},
        {"try", [](cLocker& l) { (void)l.doTryLock(); }},
        {"unlock", [](cLocker& l) { l.doUnlock(); }},
        {"scope", [](cLocker& l) { cLocker::cLock const lock(l.lock()); }},
    };
    for (auto const& row : calls) {
        SCOPED_TRACE(row.name);
        auto const error = ntest::raisedBy<nstd::cBugException>([&] { row.call(copy); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), "The operation \"cLocker::lock()\" is not supported!");
    }

    cLocker assigned;
    cLocker::cLock const held(assigned.lock());
    assigned = locker;
    EXPECT_FALSE(isFree(assigned));
    EXPECT_TRUE(isFree(locker));
}

TEST(cSynchronizableTest, everyObjectHasItsOwnMutex)
{
    struct cGuarded : np::cSynchronizable { };
    cGuarded const first;
    cGuarded const second;
    cLocker::cLock const lock(first.mutex());
    EXPECT_EQ(first.mutex(), first.mutex());
    EXPECT_FALSE(isFree(*first.mutex()));
    EXPECT_TRUE(isFree(*second.mutex()));
}

} // namespace
