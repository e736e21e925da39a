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

struct tAutoPtrTest : testing::Test {
    void SetUp() override
    {
        cLogged::sLog.clear();
        cLogged::sNext = 'a';
    }
};

TEST_F(tAutoPtrTest, theTypeSaysHowTheEndIs)
{
    {
        tAutoPtr<cLogged> const array(new cLogged[3], tAutoPtrType::ptArray);
    }
    EXPECT_EQ(cLogged::sLog, "cba");

    cLogged lent;
    {
        tAutoPtr<cLogged> const unknown(&lent, static_cast<tAutoPtrType::PointerType>(7));
    }
    EXPECT_EQ(cLogged::sLog, "cba");
}

TEST_F(tAutoPtrTest, everyCopyMovesTheOwnershipWithItsType)
{
    tAutoPtr<cLogged> source(new cLogged[2], tAutoPtrType::ptArray);
    cLogged* const pointer = source.get();
    tAutoPtr<cLogged> copy(source);
    EXPECT_FALSE(source);
    tAutoPtr<cLogged> assigned(new cLogged);
    assigned = copy;
    EXPECT_EQ(cLogged::sLog, "c");
    tAutoPtr<cLogged> throughRef(static_cast<tAutoPtrRef<cLogged>>(assigned));
    EXPECT_EQ(assigned.get(), nullptr);
    EXPECT_EQ(throughRef.get(), pointer);
    EXPECT_EQ(throughRef.pointerType(), tAutoPtrType::ptArray);
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
}

} // namespace
