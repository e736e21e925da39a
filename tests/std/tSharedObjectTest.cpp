#include "nel_core/std/tSharedObject.h"

#include <gtest/gtest.h>

#include "nel_core/std/tList.h"
#include "nel_core/std/tSharedObjectWatch.h"
#include "tests/support/expectRefusal.h"
#include "tests/support/tCountedCopy.h"

namespace {

using nstd::tAutoPtr;
using nstd::tAutoPtrType;
using nstd::tSharedObject;
using nstd::tSharedObjectData;
using nstd::tSharedObjectWatch;

using cCounted = ntest::tCountedCopy<struct cSharedTag>;
using cHandle = tSharedObject<cCounted>;
using cWatch = tSharedObjectWatch<cCounted>;

TEST(tSharedObjectTest, theLastHandleDeletesAnOwnedObject)
{
    cHandle first(new cCounted);
    {
        cHandle const second(first);
        cHandle third;
        third = second;
        EXPECT_EQ(first.refCount(), 3u);
    }
    auto& self = first;
    first = self;
    first.reset(first.get());
    first.ref();
    EXPECT_EQ(first.refCount(), 2u);
    first.unref();
    EXPECT_EQ(cCounted::living, 1);
    first = cHandle();
    EXPECT_EQ(cCounted::living, 0);
}

TEST(tSharedObjectTest, anObjectThatWasLentStays)
{
    cCounted lent;
    {
        cHandle one(lent);
        cHandle other(new cCounted);
        other = lent;
        cHandle const third(tAutoPtr<cCounted>(&lent, tAutoPtrType::ptUnowned));
        EXPECT_TRUE(one == other && other == third);
        EXPECT_TRUE(one.unique()); // equal by object, but each with a block of its own
        one.invalidateObject();
    }
    EXPECT_EQ(cCounted::living, 1);
}

TEST(tSharedObjectTest, anArrayIsRefusedAndStaysOwned)
{
    tAutoPtr<cCounted> array(new cCounted[2], tAutoPtrType::ptArray);
    ntest::expectAssertion([&] { cHandle const handle(array); }, "p.pointerType() != 1",
                           "nel_core/std/tSharedObject");
    EXPECT_EQ(cCounted::living, 0);
}

TEST(tSharedObjectTest, aDeadObjectIsDeadForEveryHolder)
{
    cHandle one(new cCounted);
    cHandle other(one);
    cWatch const watch(one);
    one.invalidateObject();
    EXPECT_EQ(cCounted::living, 0);
    EXPECT_TRUE(other.null());
    EXPECT_TRUE(watch.lock().null());
    for (cHandle const& dead : {other, cHandle()}) {
        auto const error = ntest::raisedBy<nstd::cBugException>([&] { static_cast<void>(*dead); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), "Invalid shared object dereference!");
    }
}

TEST(tSharedObjectTest, theBlockOutlivesTheObjectAndTakesNoNewHandles)
{
    auto* const data = new tSharedObjectData(true);
    auto* const object = new cCounted;
    cHandle attached(data, object);
    static_cast<void>(data->dropReference()); // the creator's own share
    cWatch watch;
    watch = attached;
    EXPECT_EQ(data->refCount(), 1u);
    EXPECT_EQ(data->holderCount(), 3u);
    EXPECT_EQ(watch.lock().get(), object);
    attached = cHandle();
    EXPECT_EQ(cCounted::living, 0);
    EXPECT_EQ(data->holderCount(), 2u);
    cHandle const late(data, object);
    EXPECT_TRUE(late.null());
    EXPECT_EQ(data->holderCount(), 2u);
    EXPECT_FALSE(data->dropHolder());
}

// An object that watches itself and holds on to others: its end drops them all while its own is under way.
struct cKnot {
    virtual ~cKnot() { EXPECT_TRUE(mSelf.lock().null()); }
    tSharedObjectWatch<cKnot> mSelf;
    tSharedObject<cKnot> mpNext;
};

TEST(tSharedObjectTest, anObjectMayDropItsOwnWatchWhenItEnds)
{
    for (bool const invalidated : {false, true}) {
        tSharedObject<cKnot> head(new cKnot);
        head->mSelf = head;
        head->mpNext = tSharedObject<cKnot>(new cKnot);
        head->mpNext->mSelf = head->mpNext;
        if (invalidated)
            head.invalidateObject();
    }
}

} // namespace
