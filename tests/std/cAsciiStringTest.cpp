#include "nel_core/std/cAsciiString.h"

#include <climits>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>

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
    auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>([&] { cAsciiString tail(abcd, 5); });
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
    cAsciiString const digits("123456789");
    text = digits;
    EXPECT_EQ(text._poolSize(), 16u);
    text = cAsciiString("taken over");
    EXPECT_EQ(text, "taken over");
    EXPECT_EQ(text.growStep(), 3u);
    text = static_cast<char const*>(nullptr);
    EXPECT_EQ(text, "");
}

static_assert(std::is_nothrow_move_constructible_v<cAsciiString>);
static_assert(std::is_nothrow_move_assignable_v<cAsciiString>);
static_assert(std::is_nothrow_move_constructible_v<nstd::cOutOfBoundsException>); // it holds two

struct cUseRow {
    char const* name;
    void (*use)(cAsciiString&);
    char const* expected;
};

// Done with a string whose text has been taken away.
cUseRow const kUses[] = {
    {"assign", [](cAsciiString& s) { s = "ab"; }, "ab"},
    {"assign nothing", [](cAsciiString& s) { s = "", s += s.data(); }, ""},
    {"append", [](cAsciiString& s) { s += 'a'; }, "a"},
    {"fill", [](cAsciiString& s) { s.adjust(3, '.'); }, "..."},
    {"map", [](cAsciiString& s) { s.toUpper(); }, ""},
    {"copy", [](cAsciiString& s) { s = cAsciiString(s) + s; }, ""},
    {"tail", [](cAsciiString& s) { s = cAsciiString(s, 0); }, ""},
    {"move into itself", [](cAsciiString& s) { s = std::move(static_cast<cAsciiString&>(s)); }, ""},
    {"suffix", [](cAsciiString& s) { cAsciiString("abc").setFixedLength(1, s, '.'); }, ""},
};

TEST(cAsciiStringTest, movesItsPoolAndStaysAString)
{
    for (auto const& row : kUses) {
        SCOPED_TRACE(row.name);
        cAsciiString source("abc");
        source.setGrowStep(4);
        char const* const pool = source.c_str();
        cAsciiString target(std::move(source));
        EXPECT_EQ(target.c_str(), pool);
        EXPECT_STREQ(source.c_str(), "");
        EXPECT_TRUE(source == cAsciiString() && cAsciiString() == source);
        row.use(source);
        EXPECT_STREQ(source.c_str(), row.expected);
        EXPECT_EQ(source, row.expected);
        EXPECT_EQ(source.growStep(), 4u);

        source = std::move(target);
        EXPECT_EQ(source.c_str(), pool);
        EXPECT_STREQ(target.c_str(), "");
    }
}

TEST(cAsciiStringTest, canBeAssignedOnceItIsDestroyed)
{
    cAsciiString text("abc");
    text.destroy();
    auto const error = ntest::raisedBy<nstd::cBugException>([&] { text.c_str(); });
    ASSERT_TRUE(error.has_value());
    EXPECT_NE(ntest::messageOf(*error).find("mpPool != 0"), std::string::npos);
    text = "de";
    EXPECT_EQ(text, "de");
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
    text = text.c_str() + 22;
    EXPECT_EQ(text.length(), 100u);
    text = text.c_str() + 100;
    EXPECT_EQ(text, "");
    text = "ab";
    text.setFixedLength(1, text, '-');
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
    char const* text;
    void (*call)(cAsciiString&);
    char const* expected;
};

cLayoutRow const kLayouts[] = {
    {"ab", [](cAsciiString& s) { s.leftAdjust(5, '.'); }, "ab..."},
    {"abcde", [](cAsciiString& s) { s.leftAdjust(5, '.'); }, "abcde"},
    {"ab", [](cAsciiString& s) { s.rightAdjust(5, '.'); }, "...ab"},
    {"ab", [](cAsciiString& s) { s.adjust(5, '.'); }, ".ab.."},
    {"ab", [](cAsciiString& s) { s.adjust(3, '.'); }, "ab."},
    {"abcdefgh", [](cAsciiString& s) { s.setFixedLength(5, "..", ' '); }, "abc.."},
    {"ab", [](cAsciiString& s) { s.setFixedLength(5, "..", ' '); }, "ab   "},
    {"abcde", [](cAsciiString& s) { s.setFixedLength(5, "..", ' '); }, "abcde"},
    {"abcdef", [](cAsciiString& s) { s.setFixedLength(1, "....", ' '); }, "...."},
    {"abc", [](cAsciiString& s) { s.setFixedLength(0, "", ' '); }, ""},
    {"  a ", [](cAsciiString& s) { s.ltrim(); }, "a "},
    {"  a ", [](cAsciiString& s) { s.rtrim(); }, "  a"},
    {"  a b ", [](cAsciiString& s) { s.trim(); }, "a b"},
    {"   ", [](cAsciiString& s) { s.rtrim(); }, ""},
    {"   ", [](cAsciiString& s) { s.ltrim(); }, ""},
    {" \ta\t ", [](cAsciiString& s) { s.trim(); }, "\ta\t"},
    {"aZ{`@[9\xe4", [](cAsciiString& s) { s.toUpper(); }, "AZ{`@[9\xe4"},
    {"aZ{`@[9\xc4", [](cAsciiString& s) { s.toLower(); }, "az{`@[9\xc4"},
    {"ab", [](cAsciiString& s) { s = s + s.upperCase(); }, "abAB"},
};

TEST(cAsciiStringTest, laysTextOut)
{
    for (auto const& row : kLayouts) {
        SCOPED_TRACE(std::string(row.text) + " -> " + row.expected);
        cAsciiString text(row.text);
        row.call(text);
        EXPECT_EQ(text, row.expected);
        EXPECT_EQ(text.c_str()[text.length()], 0);
    }
    cAsciiString text("  abc  ");
    text.trim();
    EXPECT_EQ(text._poolSize(), 3u);
    for (int c = CHAR_MIN; c <= CHAR_MAX; ++c)
        EXPECT_EQ(cAsciiString::isPrintable(static_cast<char>(c)), c >= 0x20 && c <= 0x7E) << c;
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
    EXPECT_TRUE(abc == cAsciiString("abc"));
    EXPECT_TRUE(abc != cAsciiString("abC"));
    EXPECT_TRUE(abc == std::string_view("abc"));
    EXPECT_TRUE(abc < "abc"); // the order is that of the array, which counts the terminator
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
