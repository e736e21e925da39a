#include "nel_core/std/tBounds.h"

#include <gtest/gtest.h>

#include "tests/support/expectRefusal.h"

using nstd::tBounds;

namespace {

constexpr int kFits = -2; // then the value is the result

struct cRow {
    char const* name;
    unsigned int (*rule)(unsigned int, unsigned int, unsigned int, char const*, char const*);
    unsigned int length, first, second;
    int outcome;
    unsigned int value = 0, max = 0;
};

cRow const kRows[] = {
    {"nothing at the end", tBounds::startSize2End, 5, 5, 0, kFits, 5},
    {"the largest length", tBounds::startSize2End, 0xFFFFFFFFu, 1, 0xFFFFFFFEu, kFits, 0xFFFFFFFFu},
    {"start and size wrap", tBounds::startSize2End, 5, 6, 0xFFFFFFFFu, ntest::kOutOfBounds},
    {"start beyond", tBounds::startSize2End, 5, 6, 0, cSTDExceptions::ortIndex, 6, 4},
    {"size too large", tBounds::startSize2End, 5, 2, 4, cSTDExceptions::ortSize, 4, 3},
    {"reversed", tBounds::startEnd2Size, 5, 3, 2, ntest::kOutOfBounds},
    {"end beyond", tBounds::startEnd2Size, 5, 6, 6, cSTDExceptions::ortEndValue, 6, 5},
    {"empty at the end", tBounds::startEnd2Size, 5, 5, 5, cSTDExceptions::ortIndex, 5, 4},
};

TEST(tBoundsTest, rulesGiveTheRangeOrTheLimit)
{
    for (auto const& row : kRows) {
        SCOPED_TRACE(row.name);
        auto const call = [&] { return row.rule(row.length, row.first, row.second, "tThing", "use"); };
        if (row.outcome == kFits)
            EXPECT_EQ(call(), row.value);
        else
            ntest::expectRefusal(call, {"tThing", "use", row.outcome, row.value, row.max});
    }
}

TEST(tBoundsTest, lengthsThatDoNotFitAreOutOfBounds)
{
    EXPECT_EQ(tBounds::sum(0xFFFFFFFEu, 1, "tThing", "use"), 0xFFFFFFFFu);
    ntest::expectRefusal([] { tBounds::sum(0xFFFFFFFFu, 1, "tThing", "use"); },
                         {"tThing", "use", ntest::kOutOfBounds});
}

} // namespace
