#include <gtest/gtest.h>

#include <algorithm>

#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cSystem.h"
#include "tests/support/cFailingMemory.h"

namespace {

using npi::cSystem;
using ntest::cFailingMemory;

// Starts and ends without a system; what the process keeps for good was made before.
class cSystemFailureTest : public testing::TestWithParam<cFailingMemory::Mode> {
protected:
    void SetUp() override
    {
        if (!cFailingMemory::isAvailable())
            GTEST_SKIP();
        npi::system();
        cSystem::cleanup();
    }
    void TearDown() override { cSystem::cleanup(); }
};

TEST_P(cSystemFailureTest, aBuildThatFailsLeavesNothingAndTheNextOneSucceeds)
{
    auto const before = cFailingMemory::inUse();
    auto const refusals = ntest::failEachRequest(
        [] {
            npi::system();
            cSystem::cleanup();
        },
        [&] {
            EXPECT_EQ(cFailingMemory::inUse(), before);
            cSystem::exec();
            cSystem::cleanup();
        },
        GetParam());
    EXPECT_GT(refusals, 5u);
}

// A line comes out, if not the whole of it, and the entry raises nothing.
TEST_P(cSystemFailureTest, aDebugEntryDoesNotFail)
{
    bool hasRaised = false;
    testing::internal::CaptureStderr();
    auto const refusals = ntest::failEachRequest(
        [&] {
            try {
                npi::cDebugEntry("tests/entry", 3) << "text that is longer than a short line: " << 42;
            } catch (...) {
                hasRaised = true;
            }
        },
        [&] {
            EXPECT_FALSE(hasRaised);
            cSystem::cleanup();
        },
        GetParam());
    auto const written = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), refusals + 1) << written;
    EXPECT_NE(written.find("entry:3: text that is longer than a short line: 42\r\n"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(modes, cSystemFailureTest,
                         testing::Values(cFailingMemory::moOnce, cFailingMemory::moShortage));

} // namespace
