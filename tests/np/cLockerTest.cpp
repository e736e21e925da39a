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
    {
        cLocker::cLock const outer(locker.lock());
        {
            cLocker::cLock const inner(&locker);
            cLocker::cLock const innermost(locker.tryLock());
            EXPECT_TRUE(outer.isLocked() && inner.isLocked() && innermost.isLocked());
        }
        EXPECT_FALSE(isFree(locker)); // its attempt has ended by now and released nothing
        EXPECT_FALSE(isFree(locker));
    }
    EXPECT_TRUE(isFree(locker));
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
}

TEST(cLockerTest, aCopyHasNoMutexAndAnAssignedLockerKeepsItsOwn)
{
    cLocker locker;
    cLocker copy(locker);
    void (*const calls[])(cLocker&) = {
        [](cLocker& l) { l.doLock(); },
        [](cLocker& l) { (void)l.doTryLock(); },
        [](cLocker& l) { l.doUnlock(); },
    };
    for (auto const& call : calls) {
        auto const error = ntest::raisedBy<nstd::cBugException>([&] { call(copy); });
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
    cGuarded second(first);
    cLocker::cLock const lock(first.mutex());
    second = first;
    EXPECT_TRUE(isFree(*second.mutex()));
}

} // namespace
