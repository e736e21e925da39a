#include "nel_core/std/cTime.h"

#include <gtest/gtest.h>

namespace {

using nstd::cTime;

TEST(cTimeTest, partsAndTotals)
{
    cTime const time(2000000u, 3u, 4u, 5006007u); // 32 bits hold none of these products
    EXPECT_EQ(time.get(), 7200000189006007ULL);
    EXPECT_EQ(time.toNSec(), 7200000189006007000ULL);
    EXPECT_EQ(time.hour(), 2000000u % 24);
    EXPECT_EQ(time.minutes(), 3u);
    EXPECT_EQ(time.sec(), 9u);
    EXPECT_EQ(time.msec(), 6u);
    EXPECT_EQ(time.usec(), 6007u);
    EXPECT_EQ(cTime(4294967295u, 4294967295u).get(), 4294967295ULL * 1000001);
}

TEST(cTimeTest, differencesAreAbsoluteAndShiftsAreNot)
{
    EXPECT_EQ(cTime(5) - cTime(8), cTime(3));
    EXPECT_EQ(cTime(0) - cTime(~0ULL), cTime(~0ULL));
    EXPECT_EQ(cTime(8) - 9LL, cTime(~0ULL));
    EXPECT_EQ(cTime(8) + -8LL, cTime(0));
    EXPECT_EQ(cTime(1) - -2, cTime(3));
}

} // namespace
