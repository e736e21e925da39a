#include "nel_core/std/tPtrVector.h"

#include <gtest/gtest.h>

#include "tests/support/tCountedCopy.h"

namespace {

using cCounted = ntest::tCountedCopy<struct cPtrVectorTag>;
using cPointers = nstd::tPtrVector<cCounted>;

TEST(tPtrVectorTest, theModeSaysWhatIsDisposedOfAndGivenAway)
{
    struct {
        cPointers::GuardMode mode;
        bool isArray, isGivenAway;
        int disposed;
    } const kRows[] = {
        {cPointers::gmOwn, false, true, 1},
        {cPointers::gmOwnArray, true, false, 2},
        {static_cast<cPointers::GuardMode>(9), true, false, 0},
    };
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
        if (taken)
            vector.push_front(taken.release());
        vector.remove(1);
        vector.remove(0);
        EXPECT_EQ(before - cCounted::living, row.disposed);
        if (row.disposed == 0)
            delete[] pointee;
    }
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
        vector.append(new cLeaving(vector)); // and now the end of the vector itself
}

} // namespace
