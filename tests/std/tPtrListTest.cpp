#include "nel_core/std/tPtrList.h"

#include <gtest/gtest.h>

#include "nel_core/std/cOutOfBoundsException.h"
#include "tests/support/raisedBy.h"
#include "tests/support/tCountedCopy.h"

namespace {

using cCounted = ntest::tCountedCopy<struct cPtrListTag>;
using cPointers = nstd::tPtrList<cCounted>;
using cOwnerPtr = nstd::tAutoPtr<cCounted>;

struct cOwner : cPointers {
    explicit cOwner(unsigned int count)
    {
        setGuardMode(gmOwn);
        for (unsigned int i = 0; i < count; ++i)
            append(new cCounted);
    }
};

TEST(tPtrListTest, theModeSaysWhatIsDisposedOfAndGivenAway)
{
    struct {
        cPointers::GuardMode mode;
        bool isArray;
        int disposed;
        nstd::tAutoPtrType::PointerType given;
    } const kRows[] = {
        {cPointers::gmRefer, true, 0, nstd::tAutoPtrType::ptUnowned},
        {cPointers::gmOwn, false, 1, nstd::tAutoPtrType::ptObject},
        {cPointers::gmOwnArray, true, 2, nstd::tAutoPtrType::ptArray},
        {static_cast<cPointers::GuardMode>(9), true, 0, nstd::tAutoPtrType::ptUnowned},
    };
    EXPECT_EQ(cPointers().guardMode(), cPointers::gmRefer);
    for (auto const& row : kRows) {
        SCOPED_TRACE(static_cast<unsigned int>(row.mode));
        auto* const pointee = row.isArray ? new cCounted[2] : new cCounted;
        int const before = cCounted::living;
        cPointers list;
        list.setGuardMode(row.mode);
        list.append(pointee);
        if (row.disposed != 0) {
            cOwnerPtr taken = list.take(list.begin());
            EXPECT_EQ(taken.get(), pointee);
            EXPECT_EQ(taken.pointerType(), row.given);
            EXPECT_TRUE(list.empty());
            list.guardedInsert(list.end(), taken);
        }
        list.begin().eraseLater();
        list.purge();
        EXPECT_EQ(before - cCounted::living, row.disposed);
        if (row.disposed == 0)
            delete[] pointee;
    }
    EXPECT_EQ(cCounted::living, 0);
}

TEST(tPtrListTest, aRefusedTakeChangesNothing)
{
    cOwner owner(1);
    struct {
        cPointers::GuardMode mode;
        bool atEnd;
        char const* operation;
    } const kRows[] = {
        {cPointers::gmRefer, false, "take()"},
        {cPointers::gmRefer, true, "take()"},
        {cPointers::gmOwn, true, "tIterator::operator*()"},
    };
    for (auto const& row : kRows) {
        owner.setGuardMode(row.mode);
        auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>(
            [&] { static_cast<void>(owner.take(row.atEnd ? owner.end() : owner.begin())); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::text(error->container()), "tList");
        EXPECT_EQ(ntest::text(error->operation()), row.operation);
        EXPECT_EQ(owner.size(), 1u);
    }
}

TEST(tPtrListTest, aRefusedGuardedInsertLeavesTheObject)
{
    cOwner owner(1);
    cOwnerPtr object(new cCounted);
    EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfBoundsException>([&] {
                    owner.guardedInsert(owner.start(), object);
                }).has_value());
    EXPECT_TRUE(object);
}

TEST(tPtrListTest, ownershipStaysWithTheSourceOfAnAssignmentAndMovesByMoveFrom)
{
    cOwner source(3);
    {
        cOwner assigned(2);
        assigned = source;
        EXPECT_EQ(cCounted::living, 3); // the old content went by the old mode
        EXPECT_EQ(assigned.guardMode(), cPointers::gmRefer);
        assigned = *&assigned;
        assigned.append(source);
        EXPECT_EQ(assigned.size(), 6u);
        EXPECT_EQ(*assigned.last(), *source.last());
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

} // namespace
