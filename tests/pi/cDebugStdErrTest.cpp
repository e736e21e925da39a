#include "nel_core/pi/cDebugStdErr.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <thread>
#include <unistd.h>

#include "nel_core/np/cLocker.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cSystem.h"
#include "tests/support/cSystemFixture.h"

namespace {

using npi::cAbstractOut;
using npi::cDebugStdErr;

// What `work` writes to standard error.
template<typename F>
std::string written(F&& work)
{
    testing::internal::CaptureStderr();
    work();
    return testing::internal::GetCapturedStderr();
}

class cDebugStdErrTest : public ntest::cSystemFixture { };

TEST_F(cDebugStdErrTest, positionsAndFilters)
{
    struct {
        char const *name, *filter, *file, *expected;
    } const rows[] = {
        {"no position", "cWork tArray", nullptr, "text\r\n"},
        {"folders are cut", "cWork tArray", "/a/b/other.c", "other.c:42: text\r\n"},
        {"backslash", nullptr, "a\\b.c", "b.c:42: text\r\n"},
        {"colon", nullptr, "/a:b.c", "b.c:42: text\r\n"},
        {"ends in a slash", nullptr, "/a/b/", ":42: text\r\n"},
        {"a word of the path", "cWork tArray", "nel_core/std/tArray", ""},
        {"other case", "cwork", "cWork", "cWork:42: text\r\n"},
        {"empty words match nothing", "  x   ", "/a/b.c", "b.c:42: text\r\n"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cDebugStdErr out(row.filter);
        EXPECT_EQ(written([&] { out.debugMessage(row.file, 42) << "text\n"; }), row.expected);
    }
}

TEST_F(cDebugStdErrTest, everyLineOfAnEntryIsIndentedAfterItsPosition)
{
    npi::system().defaults.numberFormat.setBase(16);
    cDebugStdErr out(nullptr);
    out << cAbstractOut::indent() << cAbstractOut::indent();
    EXPECT_EQ(written([&] { out.debugMessage("f", 31) << "a\nb\n"; }), "f:31:     a\r\nf:31:     b\r\n");
    npi::system().defaults.numberFormat.setBase(10);
}

TEST_F(cDebugStdErrTest, aLineAppearsWithItsLineFeedOrWhenFlushed)
{
    cDebugStdErr out(nullptr);
    EXPECT_EQ(written([&] { out.debugMessage("f", 1) << cAbstractOut::indent() << "ab"; }), "");
    EXPECT_EQ(written([&] { out.flush(); }), "ab");
    EXPECT_EQ(written([&] { out << "c\n"; }), "f:1:   c\r\n");
}

// Descriptor 2 is exchanged for a pipe that takes a little at a time and never blocks.
TEST_F(cDebugStdErrTest, nothingIsLostWhereStandardErrorIsSlow)
{
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    fcntl(ends[1], F_SETFL, O_NONBLOCK);
    int const before = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
    dup2(ends[1], STDERR_FILENO);
    close(ends[1]);
    std::string received;
    std::thread reader([&] {
        char buffer[1000];
        for (ssize_t n; (n = read(ends[0], buffer, sizeof(buffer))) > 0;)
            received.append(buffer, static_cast<std::size_t>(n));
    });
    std::string const text(100000, 'x');
    cDebugStdErr out(nullptr);
    out << text.c_str() << "\n";
    dup2(before, STDERR_FILENO);
    close(before);
    reader.join();
    close(ends[0]);
    EXPECT_TRUE(received == text + "\r\n") << received.size();
}

TEST_F(cDebugStdErrTest, entriesOfThreadsDoNotMix)
{
    constexpr int kEntries = 50;
    auto const write = [](char const* text) {
        for (int i = 0; i < kEntries; ++i)
            npi::cDebugEntry("test/file", 3) << text << text << "\n" << text;
    };
    std::string const all = written([&] {
        std::thread other(write, "b");
        write("a");
        other.join();
    });
    std::string const entryA = "file:3: aa\r\nfile:3: a\r\n";
    std::string const entryB = "file:3: bb\r\nfile:3: b\r\n";
    int count = 0;
    for (std::size_t at = 0; at < all.size(); at += entryA.size(), ++count)
        ASSERT_TRUE(all.compare(at, entryA.size(), entryA) == 0
                    || all.compare(at, entryB.size(), entryB) == 0)
            << at;
    EXPECT_EQ(count, 2 * kEntries);
}

} // namespace
