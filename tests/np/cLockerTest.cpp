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
    auto const description = locker.lock();
    EXPECT_TRUE(isFree(locker));
    {
        cLocker::cLock const outer(description);
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
    auto const description = locker.unlock();
    EXPECT_FALSE(isFree(locker));
    {
        cLocker::cUnlock const pause(description);
        EXPECT_TRUE(isFree(locker));
    }
    EXPECT_FALSE(isFree(locker));
    {
        cLocker* const none = nullptr;
        cLocker::cLock const noLock(none);
        cLocker::cUnlock const noUnlock(none);
        EXPECT_TRUE(noLock.isLocked());
    }
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
        {"attempt", [](cLocker& l) { cLocker::cLock const lock(l.tryLock()); }},
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
    cGuarded second(first);
    cLocker::cLock const lock(first.mutex());
    EXPECT_FALSE(isFree(*first.mutex()));
    EXPECT_TRUE(isFree(*second.mutex()));
    second = first;
    EXPECT_TRUE(isFree(*second.mutex()));
}

} // namespace
