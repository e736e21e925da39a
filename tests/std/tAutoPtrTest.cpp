#include "nel_core/std/tAutoPtr.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using nstd::tAutoPtr;
using nstd::tAutoPtrRef;
using nstd::tAutoPtrType;

// Writes its letter into the log when it is destroyed; arrays are lettered in order of construction.
struct cLogged {
    static std::string sLog;
    static char sNext;

    cLogged() : mLetter(sNext++) { }
    virtual ~cLogged() { sLog += mLetter; }

    char mLetter;
};
std::string cLogged::sLog;
char cLogged::sNext = 'a';

class tAutoPtrTest : public testing::Test {
protected:
    tAutoPtrTest()
    {
        cLogged::sLog.clear();
        cLogged::sNext = 'a';
    }
};

tAutoPtr<cLogged> returnedByValue()
{
    tAutoPtr<cLogged> local(new cLogged);
    return local;
}

TEST_F(tAutoPtrTest, theTypeSaysHowTheEndIs)
{
    {
        tAutoPtr<cLogged> const object(new cLogged);
    }
    EXPECT_EQ(cLogged::sLog, "a");
    {
        tAutoPtr<cLogged> const array(new cLogged[3], tAutoPtrType::ptArray);
    }
    EXPECT_EQ(cLogged::sLog, "adcb");

    cLogged lent;
    {
        tAutoPtr<cLogged> const unowned(&lent, tAutoPtrType::ptUnowned);
    }
    {
        tAutoPtr<cLogged> const unknown(&lent, static_cast<tAutoPtrType::PointerType>(7));
    }
    EXPECT_EQ(cLogged::sLog, "adcb");
}

TEST_F(tAutoPtrTest, everyCopyMovesTheOwnershipWithItsType)
{
    tAutoPtr<cLogged> source(new cLogged[2], tAutoPtrType::ptArray);
    cLogged* const pointer = source.get();
    tAutoPtr<cLogged> copy(source);
    EXPECT_FALSE(source);
    EXPECT_EQ(source.pointerType(), tAutoPtrType::ptArray);
    EXPECT_EQ(&copy[1], pointer + 1);

    tAutoPtr<cLogged> assigned(new cLogged);
    assigned = copy;
    EXPECT_EQ(cLogged::sLog, "c");
    tAutoPtr<cLogged> throughRef(static_cast<tAutoPtrRef<cLogged>>(assigned));
    EXPECT_EQ(assigned.get(), nullptr);
    EXPECT_EQ(throughRef.get(), pointer);
    EXPECT_EQ(throughRef.pointerType(), tAutoPtrType::ptArray);

    tAutoPtr<cLogged> swapped(returnedByValue());
    swapped.swap(throughRef);
    EXPECT_EQ(swapped.pointerType(), tAutoPtrType::ptArray);
    swapped = returnedByValue();
    EXPECT_EQ(cLogged::sLog, "cba");
    EXPECT_EQ(swapped.pointerType(), tAutoPtrType::ptObject);
}

TEST_F(tAutoPtrTest, thePointerThatIsHeldIsNeverDisposedOf)
{
    tAutoPtr<cLogged> held(new cLogged);
    held = tAutoPtrRef<cLogged>{held.get(), tAutoPtrType::ptUnowned};
    EXPECT_EQ(held.pointerType(), tAutoPtrType::ptObject);
    held.reinit(held.get(), tAutoPtrType::ptUnowned);
    EXPECT_EQ(held.pointerType(), tAutoPtrType::ptUnowned);
    held.reset(held.get(), tAutoPtrType::ptObject);
    auto& self = held;
    held = self;
    EXPECT_TRUE(held);
    EXPECT_EQ(cLogged::sLog, "");
    held.reset(nullptr, tAutoPtrType::ptObject);
    EXPECT_EQ(cLogged::sLog, "a");
}

// Looks at its holder from its own destructor.
struct cCurious {
    cCurious(tAutoPtr<cCurious>& holder, cCurious*& seen) : mpHolder(&holder), mpSeen(&seen) { }
    virtual ~cCurious() { *mpSeen = mpHolder->get(); }
    tAutoPtr<cCurious>* mpHolder;
    cCurious** mpSeen;
};

TEST_F(tAutoPtrTest, aDestructorFindsItsHolderWithTheNextObject)
{
    cCurious* seen = nullptr;
    tAutoPtr<cCurious> holder;
    holder.reset(new cCurious(holder, seen), tAutoPtrType::ptObject);
    cCurious* const next = new cCurious(holder, seen);
    holder.reset(next, tAutoPtrType::ptObject);
    EXPECT_EQ(seen, next);
    holder.reset(nullptr, tAutoPtrType::ptObject);
    EXPECT_EQ(seen, nullptr);
}

} // namespace
