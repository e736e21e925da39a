#include "nel_core/std/tBounds.h"

#include <gtest/gtest.h>

#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "tests/support/raisedBy.h"

using nstd::tBounds;

namespace {

typedef unsigned int (*tRule)(unsigned int, unsigned int, unsigned int, char const*, char const*);

constexpr int kFits = -1;
constexpr int kOutOfBounds = -2;

struct cRow {
    char const* name;
    tRule rule;
    unsigned int length, first, second;
    int outcome;         // kFits, kOutOfBounds, or a type of out-of-range
    unsigned int result; // or the value
    unsigned int max;
};

cRow const kRows[] = {
    {"all", tBounds::startSize2End, 5, 0, 5, kFits, 5, 0},
    {"nothing at the end", tBounds::startSize2End, 5, 5, 0, kFits, 5, 0},
    {"nothing in nothing", tBounds::startSize2End, 0, 0, 0, kFits, 0, 0},
    {"the largest length", tBounds::startSize2End, 0xFFFFFFFFu, 1, 0xFFFFFFFEu, kFits, 0xFFFFFFFFu, 0},
    {"start and size wrap", tBounds::startSize2End, 5, 6, 0xFFFFFFFFu, kOutOfBounds, 0, 0},
    {"start beyond", tBounds::startSize2End, 5, 6, 0, cSTDExceptions::ortIndex, 6, 4},
    {"start beyond nothing", tBounds::startSize2End, 0, 1, 0, cSTDExceptions::ortIndex, 1, 0},
    {"size too large", tBounds::startSize2End, 5, 2, 4, cSTDExceptions::ortSize, 4, 3},
    {"an inner range", tBounds::startEnd2Size, 5, 1, 5, kFits, 4, 0},
    {"empty before an element", tBounds::startEnd2Size, 5, 4, 4, kFits, 0, 0},
    {"reversed", tBounds::startEnd2Size, 5, 3, 2, kOutOfBounds, 0, 0},
    {"end beyond", tBounds::startEnd2Size, 5, 6, 6, cSTDExceptions::ortEndValue, 6, 5},
    {"empty at the end", tBounds::startEnd2Size, 5, 5, 5, cSTDExceptions::ortIndex, 5, 4},
    {"empty in nothing", tBounds::startEnd2Size, 0, 0, 0, cSTDExceptions::ortIndex, 0, 0},
    {"search everything", tBounds::searchRange, 5, 1, 0, kFits, 4, 0},
    {"search too much", tBounds::searchRange, 5, 1, 0xFFFFFFFEu, kFits, 4, 0},
    {"search a part", tBounds::searchRange, 5, 1, 3, kFits, 3, 0},
    {"search from beyond", tBounds::searchRange, 5, 6, 0, kOutOfBounds, 0, 0},
    {"search a range that wraps", tBounds::searchRange, 5, 1, 0xFFFFFFFFu, kOutOfBounds, 0, 0},
};

TEST(tBoundsTest, rulesGiveTheRangeOrTheLimit)
{
    for (auto const& row : kRows) {
        SCOPED_TRACE(row.name);
        auto const call = [&] { return row.rule(row.length, row.first, row.second, "tThing", "use"); };
        if (row.outcome == kFits) {
            EXPECT_EQ(call(), row.result);
        } else if (row.outcome == kOutOfBounds) {
            auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>(call);
            ASSERT_TRUE(error.has_value());
            EXPECT_TRUE(error->container() == "tThing" && error->operation() == "use");
        } else {
            auto const error = ntest::raisedBy<nstd::cOutOfRangeException>(call);
            ASSERT_TRUE(error.has_value());
            EXPECT_TRUE(error->container() == "tThing" && error->operation() == "use");
            EXPECT_EQ(static_cast<int>(error->rangeType()), row.outcome);
            EXPECT_EQ(error->value(), row.result);
            EXPECT_EQ(error->max(), row.max);
        }
    }
}

TEST(tBoundsTest, lengthsThatDoNotFitAreOutOfBounds)
{
    EXPECT_EQ(tBounds::sum(0xFFFFFFFEu, 1, "tThing", "use"), 0xFFFFFFFFu);
    EXPECT_EQ(tBounds::narrow(0xFFFFFFFFULL, "tThing", "use"), 0xFFFFFFFFu);
    ntest::raisedBy<nstd::cOutOfBoundsException>([] { tBounds::sum(0xFFFFFFFFu, 1, "tThing", "use"); });
    ntest::raisedBy<nstd::cOutOfBoundsException>([] { tBounds::narrow(0x100000000ULL, "tThing", "use"); });
}

} // namespace
