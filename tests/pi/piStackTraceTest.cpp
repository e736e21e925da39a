#include "nel_core/pi/piStackTrace.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

#include "nel_core/pi/breakPoint.h"
#include "tests/support/raisedBy.h"

// The test program exports a C function whose name is also the mangled form of a type, and a C++ one.
extern "C" NEL_EXPORT void i() { }

namespace ntrace {
NEL_EXPORT int resolveMe(int number, char const* text)
{
    return text ? number : -number;
}
} // namespace ntrace

namespace {

template<typename F>
piAddress addressOf(F* function)
{
    return reinterpret_cast<piAddress>(function);
}

TEST(piStackTraceTest, theBufferEndsWithZeroAndTheRestIsCleared)
{
    struct {
        unsigned int n, written;
    } const rows[] = {{0, 1}, {1, 1}, {2, 2}, {128, 128}, {500, 128}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row.n);
        piAddress buffer[130];
        std::fill_n(buffer, 130, piAddress(1));
        piBackTrace(buffer, row.n);
        EXPECT_EQ(buffer[row.written - 1], 0u);
        EXPECT_EQ(buffer[row.written], 1u);
        EXPECT_EQ(buffer[0] != 0, row.n > 1);
        auto const* const end = std::find(buffer, buffer + row.written, piAddress(0));
        EXPECT_TRUE(std::all_of(end, static_cast<piAddress const*>(buffer) + row.written,
                                [](piAddress a) { return a == 0; }));
    }
}

TEST(piStackTraceTest, addressesBecomeNames)
{
    struct {
        char const* name;
        piAddress address;
        bool resolved;
        std::string text;
    } const rows[] = {
        {"inside a function", addressOf(&ntrace::resolveMe) + 1, true, "ntrace::resolveMe(int, char const*)"},
        {"C function named like a mangled type", addressOf(&i), true, "i"},
        {"null", 0, false, "0x0"},
        {"no function", 0xabc, false, "0xabc"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        nstd::cAsciiString text("before");
        EXPECT_EQ(piResolveAddress(row.address, text), row.resolved);
        EXPECT_EQ(ntest::text(text), row.text);
    }
}

TEST(piStackTraceTest, theTextEndsAfterMainAndStepsToTheRight)
{
    std::string const trace = ntest::text(piStackTrace(500));
    ASSERT_EQ(trace.substr(0, 2), "\n\n");
    EXPECT_EQ(trace.substr(trace.size() - 6), " main\n");

    std::size_t begin = 2;
    for (unsigned int frame = 0; begin < trace.size(); ++frame) {
        EXPECT_EQ(trace.find_first_not_of(' ', begin), begin + 2 * frame);
        begin = trace.find('\n', begin) + 1;
    }
}

TEST(piStackTraceTest, framesAreStoredUpToMain)
{
    nstd::cAsciiString frames[130];
    EXPECT_EQ(piStackTrace(0, frames), 0u);
    auto const stored = piStackTrace(1000, frames);
    ASSERT_LT(stored - 1, 127u);
    EXPECT_TRUE(frames[stored - 1] == "main");

    nstd::cAsciiString few[3];
    EXPECT_EQ(piStackTrace(2, few), 1u);
    EXPECT_EQ(few[1].length(), 0u);
}

TEST(piStackTraceTest, aDumpGoesToStandardError)
{
    testing::internal::CaptureStderr();
    piStackDump();
    EXPECT_EQ(testing::internal::GetCapturedStderr().substr(0, 14), "Stackdump: \n\n\n");
}

TEST(piStackTraceDeathTest, aBreakPointEndsAnUnattachedProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(npi::breakPoint(), testing::KilledBySignal(SIGTRAP), "");
}

} // namespace
