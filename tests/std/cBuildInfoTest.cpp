#include "nel_core/std/cBuildInfo.h"

#include <gtest/gtest.h>

#include "tests/support/raisedBy.h"

namespace {

using nstd::cBuildInfo;

std::string all(cBuildInfo const& info)
{
    return ntest::text(info.buildSystem()) + '|' + ntest::text(info.compiler()) + '|'
           + ntest::text(info.compilerVersion()) + '|' + ntest::text(info.buildHost()) + '|'
           + ntest::text(info.buildDate()) + '|' + std::to_string(info.buildCount());
}

TEST(cBuildInfoTest, itKeepsAndSwapsAllThatItWasGiven)
{
    cBuildInfo info("system", "compiler", "version", "host", "date", 0xFFFFFFFFU);
    cBuildInfo other;
    info.swap(other);
    EXPECT_EQ(all(info), "unknown|unknown|unknown|unknown|unknown|0");
    EXPECT_EQ(all(other), "system|compiler|version|host|date|4294967295");
    EXPECT_EQ(all(cBuildInfo(nullptr, "c", nullptr, nullptr, nullptr, 1)), "|c||||1");
}

} // namespace
