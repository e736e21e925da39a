#include "nel_core/std/tPtrList.h"

#include <gtest/gtest.h>

#include "nel_core/std/tPtrVector.h"
#include "tests/support/expectRefusal.h"
#include "tests/support/tCountedCopy.h"

namespace {

using cCounted = ntest::tCountedCopy<struct cPtrListTag>;
using cPointers = nstd::tPtrList<cCounted>;
using cOwnerPtr = nstd::tAutoPtr<cCounted>;

template<typename Pointers>
struct tOwner : Pointers {
    explicit tOwner(unsigned int count)
    {
        this->setGuardMode(Pointers::gmOwn);
        for (unsigned int i = 0; i < count; ++i)
            this->append(new cCounted);
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
    };
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

TEST(tPtrListTest, aRefusedObjectStaysWhereItIs)
{
    tOwner<cPointers> owner(1);
    ntest::expectRefusal([&] { static_cast<void>(owner.take(owner.end())); },
                         {"tList", "tIterator::operator*()", ntest::kOutOfBounds});
    owner.setGuardMode(cPointers::gmRefer);
    ntest::expectRefusal([&] { static_cast<void>(owner.take(owner.end())); },
                         {"tList", "take()", ntest::kOutOfBounds});
    owner.setGuardMode(cPointers::gmOwn);
    cOwnerPtr object(new cCounted);
    ntest::expectRefusal([&] { owner.guardedInsert(owner.start(), object); },
                         {"tList", "insert(..)", ntest::kOutOfBounds});
    EXPECT_TRUE(object);
}

template<typename Pointers>
void assignAndMove()
{
    tOwner<Pointers> source(3);
    {
        tOwner<Pointers> assigned(2);
        assigned = source;
        EXPECT_EQ(cCounted::living, 3); // the old content went by the old mode
        EXPECT_EQ(assigned.guardMode(), Pointers::gmRefer);
        assigned = *&assigned;
        EXPECT_EQ(assigned.size(), 3u);
    }
    EXPECT_EQ(cCounted::living, 3);
    {
        tOwner<Pointers> heir(1);
        heir.moveFrom(source);
        heir.moveFrom(heir);
        EXPECT_EQ(cCounted::living, 3);
        EXPECT_EQ(source.guardMode(), Pointers::gmRefer);
        EXPECT_EQ(source.size(), 3u);
    }
    EXPECT_EQ(cCounted::living, 0);
}

TEST(tPtrListTest, ownershipStaysWithTheSourceOfAnAssignmentAndMovesByMoveFrom)
{
    assignAndMove<cPointers>();
    assignAndMove<nstd::tPtrVector<cCounted>>();
}

} // namespace
