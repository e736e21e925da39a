#include "nel_core/std/cAsciiString.h"

#include <climits>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/cAsciiStringStream.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cConstCStringRef.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "tests/support/raisedBy.h"

namespace {

using nstd::cAsciiString;

TEST(cAsciiStringTest, everyConstructorGivesATerminatedPool)
{
    cAsciiString const abcd("abcd");
    nstd::tArray<char> const bytes("a\0b", 3);
    struct {
        char const* name;
        cAsciiString text;
        std::string expected;
    } const rows[] = {
        {"nothing", cAsciiString(), ""},
        {"null", cAsciiString(static_cast<char const*>(nullptr)), ""},
        {"text", "abc", "abc"},
        {"copy", abcd, "abcd"},
        {"tail", cAsciiString(abcd, 1), "bcd"},
        {"empty tail", cAsciiString(abcd, 4), ""},
        {"array", abcd.cut(1, 3), "bc"},
        {"byte array", cAsciiString(bytes), std::string("a\0b", 3)},
        {"byte view", nstd::tConstArrayRef<char>(abcd, 2), "cd"},
        {"text view", nstd::tConstArrayRef<char, nstd::tArrayAsciiStringTraits<char>>(abcd, 0, 2), "ab"},
        {"unset view", nstd::tConstArrayRef<char>(), ""},
        {"C string", cAsciiString(nstd::cConstCStringRef("abc", 2)), "ab"},
        {"string view", cAsciiString(std::string_view("xyz", 2)), "xy"},
        {"no string view", cAsciiString(std::string_view()), ""},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(std::string(row.text), row.expected);
        EXPECT_EQ(row.text.c_str()[row.text.length()], 0);
        EXPECT_EQ(row.text._poolSize(), 32u);
    }
}

TEST(cAsciiStringTest, refusesATailBeyondTheEnd)
{
    cAsciiString const text("abc");
    auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>([&] { cAsciiString tail(text, 4); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->container(), "tArray");
    EXPECT_EQ(error->operation(), "data");
}

TEST(cAsciiStringTest, assignmentFitsThePoolToTheGrowStep)
{
    std::string const forty(40, 'x');
    struct {
        std::string before, after;
        unsigned int poolSize;
    } const rows[] = {
        {"", "", 32},      {"", "a", 32},      {"", forty, 64},   {"abc", "", 1},     {"abc", "a", 1},
        {"abc", "ab", 32}, {"abc", forty, 64}, {forty, "ab", 32}, {forty, forty, 64}, {forty, "", 1},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.before + " = " + row.after);
        cAsciiString text(row.before.c_str());
        text = row.after.c_str();
        EXPECT_EQ(text, row.after.c_str());
        EXPECT_EQ(text._poolSize(), row.poolSize);
        EXPECT_EQ(text.c_str()[text.length()], 0);
    }
    cAsciiString text("abc");
    text.setGrowStep(3);
    text = cAsciiString("123456789");
    EXPECT_EQ(text._poolSize(), 16u);
    EXPECT_EQ(text.growStep(), 3u);
    text = static_cast<char const*>(nullptr);
    EXPECT_EQ(text, "");
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
    EXPECT_EQ(text.length(), 120u);
    text += text.c_str() + 118;
    EXPECT_EQ(text.length(), 122u);
    text = text.c_str() + 22;
    EXPECT_EQ(text.length(), 100u);
    text = text.c_str() + 100;
    EXPECT_EQ(text, "");
    text = "ab";
    text.setFixedLength(1, text, '-');
    EXPECT_EQ(text, "ab");
    EXPECT_EQ(text + text, "abab");
}

TEST(cAsciiStringTest, keepsZeroBytes)
{
    cAsciiString text;
    text += 'a';
    text += '\0';
    text.addString(text);
    EXPECT_EQ(std::string(text), std::string("a\0a\0", 4));
    EXPECT_FALSE(text == "a");
    EXPECT_FALSE(text == cAsciiString("aXaX"));
}

struct cLayoutRow {
    char const* name;
    char const* text;
    void (*call)(cAsciiString&);
    char const* expected;
};

cLayoutRow const kLayouts[] = {
    {"left", "ab", [](cAsciiString& s) { s.leftAdjust(5, '.'); }, "ab..."},
    {"left, long enough", "abcde", [](cAsciiString& s) { s.leftAdjust(5, '.'); }, "abcde"},
    {"right", "ab", [](cAsciiString& s) { s.rightAdjust(5, '.'); }, "...ab"},
    {"right, too long", "abcdef", [](cAsciiString& s) { s.rightAdjust(5, '.'); }, "abcdef"},
    {"centre", "ab", [](cAsciiString& s) { s.adjust(5, '.'); }, ".ab.."},
    {"centre nothing", "", [](cAsciiString& s) { s.adjust(3, '.'); }, "..."},
    {"centre, one missing", "ab", [](cAsciiString& s) { s.adjust(3, '.'); }, "ab."},
    {"cut", "abcdefgh", [](cAsciiString& s) { s.setFixedLength(5, "..", ' '); }, "abc.."},
    {"filled", "ab", [](cAsciiString& s) { s.setFixedLength(5, "..", ' '); }, "ab   "},
    {"exact", "abcde", [](cAsciiString& s) { s.setFixedLength(5, "..", ' '); }, "abcde"},
    {"cut to a longer suffix", "abcdef", [](cAsciiString& s) { s.setFixedLength(1, "....", ' '); }, "...."},
    {"filled to a longer suffix", "ab", [](cAsciiString& s) { s.setFixedLength(1, "...", ' '); }, "ab "},
    {"cut to nothing", "abc", [](cAsciiString& s) { s.setFixedLength(0, "", ' '); }, ""},
    {"trim left", "  a ", [](cAsciiString& s) { s.ltrim(); }, "a "},
    {"trim right", "  a ", [](cAsciiString& s) { s.rtrim(); }, "  a"},
    {"trim both", "  a b ", [](cAsciiString& s) { s.trim(); }, "a b"},
    {"trim all from the right", "   ", [](cAsciiString& s) { s.rtrim(); }, ""},
    {"trim all from the left", "   ", [](cAsciiString& s) { s.ltrim(); }, ""},
    {"trim all", "   ", [](cAsciiString& s) { s.trim(); }, ""},
    {"tabs stay", " \ta\t ", [](cAsciiString& s) { s.trim(); }, "\ta\t"},
    {"upper", "aZ{`@[9\xe4", [](cAsciiString& s) { s.toUpper(); }, "AZ{`@[9\xe4"},
    {"lower", "aZ{`@[9\xc4", [](cAsciiString& s) { s.toLower(); }, "az{`@[9\xc4"},
    {"upper-cased copy", "ab", [](cAsciiString& s) { s = s + s.upperCase(); }, "abAB"},
};

TEST(cAsciiStringTest, laysTextOut)
{
    for (auto const& row : kLayouts) {
        SCOPED_TRACE(row.name);
        cAsciiString text(row.text);
        row.call(text);
        EXPECT_EQ(text, row.expected);
        EXPECT_EQ(text.c_str()[text.length()], 0);
    }
}

TEST(cAsciiStringTest, trimmingFitsThePool)
{
    cAsciiString text("  abc  ");
    text.trim();
    EXPECT_EQ(text._poolSize(), 3u);
    cAsciiString untouched("abc");
    untouched.trim();
    EXPECT_EQ(untouched._poolSize(), 32u);
}

TEST(cAsciiStringTest, equalityTakesNoTerminator)
{
    cAsciiString const abc("abc");
    EXPECT_TRUE(abc == "abc");
    EXPECT_FALSE(abc != "abc");
    EXPECT_TRUE(abc != "ab");
    EXPECT_TRUE(abc != "abcd");
    EXPECT_TRUE(abc != "abd");
    EXPECT_FALSE(abc == static_cast<char const*>(nullptr));
    EXPECT_TRUE(cAsciiString() == "");
    EXPECT_TRUE(abc == cAsciiString("abc"));
    EXPECT_TRUE(abc != cAsciiString("abC"));
    EXPECT_TRUE(abc == std::string_view("abc"));
    EXPECT_TRUE(abc < "abc"); // the order is that of the array, which counts the terminator
    EXPECT_TRUE(abc < cAsciiString("abd"));
}

TEST(cAsciiStringTest, classifiesBytes)
{
    for (int c = CHAR_MIN; c <= CHAR_MAX; ++c)
        EXPECT_EQ(cAsciiString::isPrintable(static_cast<char>(c)), c >= 0x20 && c <= 0x7E) << c;
}

TEST(cAsciiStringTest, aNumbersWidthDoesNotCountTheTextBefore)
{
    nstd::cNumberConversionFormat format(10);
    format.setFixedWidth(4);
    format.setPrecision(2);
    cAsciiString text("a");
    text.addNum32(-5, format);
    text.addUNum32(UINT_MAX, format);
    text.addNum(LLONG_MIN, format);
    text.addUNum(7, format);
    EXPECT_EQ(text, "a-0054294967295-92233720368547758080007");
    text = "a";
    text.addDouble(2.5, format);
    text.addDouble(std::numeric_limits<double>::infinity(), format);
    EXPECT_EQ(text, "a2.5+inf");

    text.setNum32(INT_MIN, format);
    EXPECT_EQ(text, "-2147483648");
    text.setUNum32(5, format);
    EXPECT_EQ(text, "0005");
    text.setNum(-1, format);
    EXPECT_EQ(text, "-001");
    text.setUNum(ULLONG_MAX, format);
    EXPECT_EQ(text, "18446744073709551615");
    EXPECT_EQ(text.toUInt(format), ULLONG_MAX);
    EXPECT_EQ(text.toInt(format), -1);
    text.setDouble(-0.25, format);
    EXPECT_EQ(text, "-0.25");
    EXPECT_DOUBLE_EQ(text.toDouble(format), -0.25);
}

TEST(cAsciiStringTest, streamsTextsAndDecimals)
{
    cAsciiString text;
    text << "n" << cAsciiString("=") << -1 << ' ' << 4000000000u << "," << LLONG_MIN << "," << ULLONG_MAX;
    EXPECT_EQ(text, "n=-1324000000000,-9223372036854775808,18446744073709551615"); // a char is its number
    EXPECT_EQ(nstd::hex(31), "0x1f");
    EXPECT_EQ(nstd::hex(0), "0x0");
    EXPECT_EQ(nstd::hex(-31), "0x-1f");

    cAsciiString const before = text;
    auto const error =
        ntest::raisedBy<nstd::cBugException>([&] { text << static_cast<char const*>(nullptr); });
    ASSERT_TRUE(error.has_value());
    auto const message = ntest::messageOf(*error);
    EXPECT_NE(message.find("sCat != 0"), std::string::npos) << message;
    EXPECT_NE(message.find("nel_core/std/cAsciiStringStream"), std::string::npos) << message;
    EXPECT_EQ(text, before);
}

} // namespace
