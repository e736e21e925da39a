#include "nel_core/io/cAbstractIODevice.h"

#include <gtest/gtest.h>

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tConstArrayRef.h"
#include "tests/support/cFakeClock.h"
#include "tests/support/cFakeDevice.h"
#include "tests/support/expectMessage.h"

namespace {

using ntest::cFakeDevice;
using tBytes = nstd::tArray<char>;

std::string text(tBytes const& bytes)
{
    return std::string(bytes.begin(), bytes.end());
}

tBytes bytesOf(std::string const& text)
{
    return tBytes(text.data(), static_cast<unsigned int>(text.size()));
}

// Every line in brackets, one that ends with the data without the second.
std::string linesOf(cFakeDevice& device)
{
    std::string lines;
    tBytes line("before");
    while (device.readTextLine(line, 0))
        lines += '[' + text(line) + ']';
    return lines + '[' + text(line);
}

TEST(cAbstractIODeviceTest, linesEndWithAnyMixOfLineEndsAndAreNeverEmpty)
{
    char const* const rows[][2] = {
        {"ab\r\n\r\ncd", "[ab][cd"}, {"a\n\rb\r", "[a][b]["}, {"\n\n\ra\n", "[a]["}, {"", "["}, {"\r", "["},
    };
    for (auto const& row : rows) {
        cFakeDevice device(row[0]);
        EXPECT_EQ(linesOf(device), row[1]) << row[0];
    }
}

TEST(cAbstractIODeviceTest, linesEndWithTheWholeDelimiter)
{
    struct {
        char const *bytes, *delimiter;
        bool keep;
        char const *first, *second;
    } const rows[] = {
        {"x--yy", "--", false, "x", "yy"},     {"x--yy", "--", true, "x--", "yy"},
        {"a-b---c", "--", false, "a-b", "-c"}, {"--", "--", false, "", ""},
        {"x-", "--", false, "x-", ""},         {"ab", "", false, "ab", ""},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.bytes);
        cFakeDevice device(row.bytes);
        tBytes line("before");
        device.readTextLine(line, bytesOf(row.delimiter), row.keep);
        EXPECT_EQ(text(line), row.first);
        device.readTextLine(line, bytesOf(row.delimiter), row.keep, 60000);
        EXPECT_EQ(text(line), row.second);
    }
}

// Every read takes two milliseconds.
TEST(cAbstractIODeviceTest, aLimitCountsForBytesThatDoNotEndTheLine)
{
    ntest::cFakeClock clock;
    cFakeDevice device;
    device.onRead = [&] { clock.advance(2); };
    auto const restart = [&](char const* bytes) {
        device.bytes = bytes;
        device.place = 0;
    };
    tBytes line;
    struct {
        char const* bytes;
        unsigned int timeout;
        bool byDelimiter, raises;
    } const rows[] = {
        {"abc\n", 5, false, true}, {"ab\n", 5, false, false}, {"\n\n\n", 5, false, true},
        {"ab\n", 0, false, false}, {"abc\n", 5, true, true},  {"ab\n", 5, true, false},
        {"\n", 0, true, false},    {"a\n", 0, true, true},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(testing::Message() << row.bytes << row.timeout << row.byDelimiter);
        restart(row.bytes);
        auto const read = [&] {
            if (row.byDelimiter)
                device.readTextLine(line, tBytes("\n"), false, row.timeout);
            else
                device.readTextLine(line, row.timeout);
        };
        if (row.raises)
            ntest::expectMessage<nstd::cRuntimeException>(
                read, "Timeout while i/o operation after " + std::to_string(row.timeout) + " milliseconds!");
        else
            read();
    }
}

TEST(cAbstractIODeviceTest, aLineIsWrittenInTwoPiecesOrRefused)
{
    cFakeDevice device;
    device.writeTextLine("abc", "\r\n");
    EXPECT_EQ(device.writes, "3 2 ");
    device.writeTextLine(nstd::tConstArrayRef<char>(bytesOf("de")), "");
    cFakeDevice source("0123456789");
    source.setPreferredBlockSize(4);
    device.writeTextLine(nstd::tConstArrayRef<char>(source, 1), "!");
    EXPECT_EQ(device.bytes, "abc\r\nde123456789!");
    EXPECT_EQ(device.writes, "3 2 2 0 9 1 ");

    device.maxWrite = 2;
    ntest::expectMessage<nstd::cRuntimeException>(
        [&] { device.writeTextLine("ab", nstd::cAsciiString("---")); }, "Unable to write 3 bytes!");
}

} // namespace
