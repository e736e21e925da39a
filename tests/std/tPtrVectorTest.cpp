#include "nel_core/std/tPtrVector.h"

#include <gtest/gtest.h>

#include "nel_core/std/cOutOfRangeException.h"
#include "tests/support/raisedBy.h"
#include "tests/support/tCountedCopy.h"

namespace {

using cCounted = ntest::tCountedCopy<struct cPtrVectorTag>;
using cPointers = nstd::tPtrVector<cCounted>;

struct cOwner : cPointers {
    explicit cOwner(unsigned int count)
    {
        setGuardMode(gmOwn);
        for (unsigned int i = 0; i < count; ++i)
            append(new cCounted);
    }
};

TEST(tPtrVectorTest, theModeSaysWhatIsDisposedOfAndGivenAway)
{
    struct {
        cPointers::GuardMode mode;
        bool isArray, isGivenAway;
        int disposed;
    } const kRows[] = {
        {cPointers::gmOwn, false, true, 1},
        {cPointers::gmOwnArray, true, false, 2},
        {cPointers::gmRefer, true, false, 0},
        {static_cast<cPointers::GuardMode>(9), true, false, 0},
    };
    EXPECT_EQ(cPointers().guardMode(), cPointers::gmRefer);
    for (auto const& row : kRows) {
        SCOPED_TRACE(static_cast<unsigned int>(row.mode));
        auto* const pointee = row.isArray ? new cCounted[2] : new cCounted;
        int const before = cCounted::living;
        cPointers vector;
        vector.setGuardMode(row.mode);
        vector.append(pointee);
        vector.append(nullptr);
        nstd::tAutoPtr<cCounted> taken = vector.take(0);
        EXPECT_EQ(vector.size(), row.isGivenAway ? 1u : 2u);
        EXPECT_EQ(taken.get(), row.isGivenAway ? pointee : nullptr);
        EXPECT_EQ(taken.pointerType(), nstd::tAutoPtrType::ptObject);
        if (taken)
            vector.push_front(taken.release());
        vector.remove(1);
        vector.remove(0);
        EXPECT_EQ(before - cCounted::living, row.disposed);
        if (row.disposed == 0)
            delete[] pointee;
    }
    EXPECT_EQ(cCounted::living, 0);

    auto const error =
        ntest::raisedBy<nstd::cOutOfRangeException>([] { static_cast<void>(cOwner(1).take(1)); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::text(error->operation()), "at");
    EXPECT_EQ(error->max(), 0);
}

TEST(tPtrVectorTest, ownershipStaysWithTheSourceOfAnAssignmentAndMovesByMoveFrom)
{
    cOwner source(3);
    {
        cOwner assigned(2);
        assigned = source;
        EXPECT_EQ(cCounted::living, 3); // the old content went by the old mode
        EXPECT_EQ(assigned.guardMode(), cPointers::gmRefer);
        EXPECT_TRUE(assigned == source);
        assigned = *&assigned;
        EXPECT_EQ(assigned.size(), 3u);
    }
    EXPECT_EQ(cCounted::living, 3);
    {
        cOwner heir(1);
        heir.moveFrom(source);
        heir.moveFrom(heir);
        EXPECT_EQ(cCounted::living, 3);
        EXPECT_EQ(heir.guardMode(), cPointers::gmOwn);
        EXPECT_EQ(source.guardMode(), cPointers::gmRefer);
        EXPECT_EQ(source.size(), 3u);
        cPointers swapped;
        swapped.swapWithOwnership(heir);
        EXPECT_EQ(swapped.guardMode(), cPointers::gmOwn);
        EXPECT_TRUE(heir.empty());
    }
    EXPECT_EQ(cCounted::living, 0);
}

TEST(tPtrVectorTest, resizingDisposesOfNothing)
{
    cOwner owner(2);
    cCounted* const first = owner[0];
    owner.resize(4);
    EXPECT_EQ(owner[0], first);
    EXPECT_EQ(owner[3], nullptr);
    EXPECT_EQ(owner.guardMode(), cPointers::gmOwn);
    EXPECT_EQ(cCounted::living, 2);
    owner.clear();
    EXPECT_EQ(cCounted::living, 0);
}

// Takes itself, and its right neighbour, out of the vector that is deleting it.
struct cLeaving {
    explicit cLeaving(nstd::tPtrVector<cLeaving>& home) : mHome(home) { }
    virtual ~cLeaving()
    {
        for (unsigned int i = 0; i < mHome.size(); ++i)
            if (mHome[i] == this)
                mHome.remove(i);
        if (!mHome.empty())
            mHome.remove(0);
    }
    nstd::tPtrVector<cLeaving>& mHome;
};

TEST(tPtrVectorTest, aPointeeMayChangeTheVectorThatDeletesIt)
{
    nstd::tPtrVector<cLeaving> vector;
    vector.setGuardMode(nstd::tPtrVector<cLeaving>::gmOwn);
    for (int i = 0; i < 6; ++i)
        vector.append(new cLeaving(vector));
    vector.remove(3);
    EXPECT_TRUE(vector.empty());
    for (int i = 0; i < 6; ++i)
        vector.append(new cLeaving(vector));
    vector.clear();
    EXPECT_TRUE(vector.empty());
}

} // namespace
