#include "nel_core/std/cAsciiString.h"

#include <climits>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "nel_core/std/cAsciiStringStream.h"
#include "nel_core/std/cConstCStringRef.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "tests/support/expectRefusal.h"

namespace {

using nstd::cAsciiString;

TEST(cAsciiStringTest, everyConstructorGivesATerminatedPool)
{
    cAsciiString const abcd("abcd");
    nstd::tArray<char> const bytes("a\0b", 3);
    struct {
        cAsciiString text;
        std::string expected;
    } const rows[] = {
        {cAsciiString(static_cast<char const*>(nullptr)), ""},
        {cAsciiString(abcd, 4), ""},
        {abcd.cut(1, 3), "bc"},
        {cAsciiString(bytes), std::string("a\0b", 3)},
        {nstd::tConstArrayRef<char, nstd::tArrayAsciiStringTraits<char>>(abcd, 0, 2), "ab"},
        {nstd::tConstArrayRef<char>(), ""},
        {cAsciiString(nstd::cConstCStringRef("abc", 2)), "ab"},
        {cAsciiString(std::string_view()), ""},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(std::string(row.text), row.expected);
        EXPECT_EQ(row.text.c_str()[row.text.length()], 0);
        EXPECT_EQ(row.text._poolSize(), 32u);
    }
    ntest::expectRefusal([&] { cAsciiString tail(abcd, 5); }, {"tArray", "data", ntest::kOutOfBounds});
}

TEST(cAsciiStringTest, assignmentFitsThePoolToTheGrowStep)
{
    std::string const forty(40, 'x');
    struct {
        std::string before, after;
        unsigned int poolSize;
    } const rows[] = {{"", "a", 32}, {"abc", "", 1}, {"abc", "a", 1}, {"abc", "ab", 32}, {"abc", forty, 64}};
    for (auto const& row : rows) {
        cAsciiString text(row.before.c_str());
        text = row.after.c_str();
        EXPECT_EQ(text, row.after.c_str());
        EXPECT_EQ(text._poolSize(), row.poolSize) << row.before << " = " << row.after;
    }
}

TEST(cAsciiStringTest, movesItsPoolAndStaysAString)
{
    struct {
        void (*use)(cAsciiString&);
        char const* expected;
    } const rows[] = {
        {[](cAsciiString& s) { s = "ab"; }, "ab"},
        {[](cAsciiString& s) { s = "", s += s.data(); }, ""},
        {[](cAsciiString& s) { s.adjust(3, '.'); }, "..."},
        {[](cAsciiString& s) { s = cAsciiString(s) + s.upperCase(); }, ""},
        {[](cAsciiString& s) { s = std::move(static_cast<cAsciiString&>(s)); }, ""},
    };
    for (auto const& row : rows) {
        cAsciiString source("abc");
        source.setGrowStep(4);
        char const* const pool = source.c_str();
        cAsciiString target(std::move(source));
        EXPECT_EQ(target.c_str(), pool);
        EXPECT_STREQ(source.c_str(), "");
        row.use(source);
        EXPECT_EQ(source, row.expected);
        EXPECT_EQ(source.growStep(), 4u);

        source = std::move(target);
        EXPECT_EQ(source.c_str(), pool);
        EXPECT_STREQ(target.c_str(), "");
    }
}

TEST(cAsciiStringTest, takesItselfAsAnArgument)
{
    std::string const thirty(30, 'x');
    cAsciiString text(thirty.c_str());
    cAsciiString const& same = text;
    text = same;
    text += text;
    EXPECT_EQ(text, (thirty + thirty).c_str());
    text << text;
    text += text.c_str() + 118;
    EXPECT_EQ(text.length(), 122u);
    text = text.c_str() + 122;
    EXPECT_EQ(text, "");
    text = "ab";
    text.setFixedLength(1, text, '-');
    EXPECT_EQ(text + text, "abab");
}

TEST(cAsciiStringTest, laysTextOut)
{
    struct {
        char const* text;
        void (*call)(cAsciiString&);
        char const* expected;
    } const rows[] = {
        {"ab", [](cAsciiString& s) { s.leftAdjust(5, '.'); }, "ab..."},
        {"ab", [](cAsciiString& s) { s.rightAdjust(5, '.'); }, "...ab"},
        {"ab", [](cAsciiString& s) { s.adjust(5, '.'); }, ".ab.."},
        {"abcdefgh", [](cAsciiString& s) { s.setFixedLength(5, "..", ' '); }, "abc.."},
        {"abcde", [](cAsciiString& s) { s.setFixedLength(5, "..", ' '); }, "abcde"},
        {"abcdef", [](cAsciiString& s) { s.setFixedLength(1, "....", ' '); }, "...."},
        {"   ", [](cAsciiString& s) { s.rtrim(); }, ""},
        {"   ", [](cAsciiString& s) { s.ltrim(); }, ""},
        {" \ta\t ", [](cAsciiString& s) { s.trim(); }, "\ta\t"},
        {"aZ{`@[9\xe4", [](cAsciiString& s) { s.toUpper(); }, "AZ{`@[9\xe4"},
        {"aZ{`@[9\xc4", [](cAsciiString& s) { s.toLower(); }, "az{`@[9\xc4"},
    };
    for (auto const& row : rows) {
        cAsciiString text(row.text);
        row.call(text);
        EXPECT_EQ(text, row.expected);
        EXPECT_EQ(text.c_str()[text.length()], 0);
    }
    for (int c = CHAR_MIN; c <= CHAR_MAX; ++c)
        EXPECT_EQ(cAsciiString::isPrintable(static_cast<char>(c)), c >= 0x20 && c <= 0x7E) << c;
}

TEST(cAsciiStringTest, aNumbersWidthDoesNotCountTheTextBefore)
{
    nstd::cNumberConversionFormat format(10);
    format.setFixedWidth(4);
    cAsciiString text("a");
    text.addNum32(-5, format);
    text.addUNum32(UINT_MAX, format);
    text.addNum(LLONG_MIN, format);
    text.addUNum(7, format);
    text.addDouble(2.5, format);
    EXPECT_EQ(text, "a-0054294967295-922337203685477580800072.5");
    text.setUNum(ULLONG_MAX, format);
    EXPECT_EQ(text.toUInt(format), ULLONG_MAX);
    EXPECT_EQ(text.toInt(format), -1);
}

TEST(cAsciiStringTest, streamsTextsAndDecimals)
{
    cAsciiString text;
    text << "n" << cAsciiString("=") << -1 << ' ' << 4000000000u << "," << LLONG_MIN << "," << ULLONG_MAX;
    EXPECT_EQ(text, "n=-1324000000000,-9223372036854775808,18446744073709551615"); // a char is its number
    EXPECT_EQ(nstd::hex(-31), "0x-1f");

    ntest::expectAssertion([&] { text << static_cast<char const*>(nullptr); }, "sCat != 0",
                           "nel_core/std/cAsciiStringStream");
}

} // namespace
