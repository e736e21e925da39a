#include "nel_core/std/cBuildInfo.h"

#include <gtest/gtest.h>

#include "nel_core/std/cOutOfRangeException.h"
#include "tests/support/raisedBy.h"
#include "tests/support/storedForm.h"

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

TEST(cBuildInfoTest, aFailedLoadChangesNothing)
{
    cBuildInfo const info("s", "c", "v", "h", "d", 7);
    auto const bytes = ntest::ascii("s") + ntest::ascii("c") + ntest::ascii("v") + ntest::ascii("h")
                       + ntest::ascii("d") + ntest::longNumber(7, 0);
    EXPECT_EQ(ntest::written([&](auto& target) { info >> target; }), bytes);

    cBuildInfo loaded;
    auto const load = [&](auto& source) { loaded << source; };
    ntest::raisedBy<nstd::cOutOfRangeException>(
        [&] { ntest::read(bytes.substr(0, bytes.size() - 1), load); });
    EXPECT_EQ(all(loaded), all(cBuildInfo()));
    ntest::read(bytes, load);
    EXPECT_EQ(all(loaded), "s|c|v|h|d|7");
}

} // namespace
