#include "nel_core/std/cNumberConversion.h"

#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tArrayRef.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/raisedBy.h"

namespace {

using nstd::cNumberConversion;
using cBytes = nstd::tArray<char>;
using cView = nstd::tConstArrayRef<char>;

double const kInfinite = std::numeric_limits<double>::infinity();
double const kGreatest = std::numeric_limits<double>::max();

enum Option : unsigned int {
    upperCase = 1,
    spaceFilled = 2,
    noPrefixes = 4,
    spacesCount = 8,
    zerosStay = 16,
    noInteger = 32,
    noFraction = 64,
};

struct cOptions {
    unsigned int base = 10;
    unsigned int flags = 0;
    unsigned int width = 0;
    unsigned int precision = 14;

    operator nstd::cNumberConversionFormat() const
    {
        nstd::cNumberConversionFormat format(base);
        format.setDigitCase((flags & upperCase) != 0 ? format.dcUpper : format.dcLower);
        format.setLeadingDigit((flags & spaceFilled) != 0 ? ' ' : '0');
        format.setBaseDetectionEnabled((flags & noPrefixes) == 0);
        format.setIgnoreLeadingSpaces((flags & spacesCount) == 0);
        format.setRemoveTrailingZeros((flags & zerosStay) == 0);
        format.addIntegerPart((flags & noInteger) == 0);
        format.addFractionalPart((flags & noFraction) == 0);
        format.setFixedWidth(width);
        format.setPrecision(precision);
        return format;
    }
};

std::string textOf(cBytes const& bytes)
{
    return std::string(bytes.data(true), bytes.length());
}

// What `write` makes of every kind of text that holds `before`, the view between brackets.
template<typename Write>
void expectWritten(std::string const& before, std::string const& expected, Write write)
{
    SCOPED_TRACE(expected);
    nstd::cAsciiString ascii(before.c_str());
    write(ascii);
    EXPECT_EQ(ascii, expected.c_str());
    nucs::cString unicode(before.c_str());
    write(unicode);
    EXPECT_EQ(unicode, expected.c_str());
    cBytes bytes(before.c_str());
    write(bytes);
    EXPECT_EQ(textOf(bytes), expected);
    cBytes around(("[" + before + "]").c_str());
    nstd::tArrayRef<char> view(around, 1, around.length() - 2);
    write(view);
    EXPECT_EQ(textOf(around), "[" + expected + "]");
}

void expectInteger(long long value, std::string const& text, cOptions options = {},
                   std::string const& before = "")
{
    expectWritten(before, text, [&](auto& out) { cNumberConversion::toString(out, value, options); });
}

TEST(cNumberConversionTest, writesIntegersToEveryKindOfText)
{
    expectInteger(0, "0");
    expectInteger(LLONG_MIN, "-9223372036854775808");
    expectInteger(LLONG_MIN, "-1" + std::string(63, '0'), {2});
    expectInteger(255, "FF", {16, upperCase});
    expectInteger(255, "00ff", {16, 0, 4});
    expectInteger(255, "  ff", {16, spaceFilled, 4});
    expectInteger(-5, "-005", {10, 0, 4});
    expectInteger(-5, "-  5", {10, spaceFilled, 4});
    expectInteger(-5, "-5", {10, 0, 1});
    expectInteger(-5, "-5", {10, 0, 2});
    expectInteger(0, "000", {10, 0, 3});
    expectInteger(-5, "-" + std::string(298, '0') + "5", {10, 0, 300});
    expectInteger(-5, "four-5", {10, 0, 4}, "four"); // the whole text has the width
    expectWritten("n=", "n=18446744073709551615",
                  [](auto& out) { cNumberConversion::toString(out, ULLONG_MAX, cOptions()); });
}

TEST(cNumberConversionTest, everyBaseAgreesWithTheStandardLibrary)
{
    std::mt19937_64 random(1);
    for (unsigned int base = 2; base <= 36; ++base) {
        for (int i = 0; i < 100; ++i) {
            auto const value = static_cast<long long>(random() >> (random() % 64)) * (i % 2 == 0 ? 1 : -1);
            char expected[80];
            *std::to_chars(expected, expected + 79, value, static_cast<int>(base)).ptr = 0;
            cOptions const options{base, noPrefixes};
            auto const text = cNumberConversion::toString(value, options);
            ASSERT_EQ(text, expected) << "base " << base;
            ASSERT_EQ(cNumberConversion::fromString(text, options), value) << expected;
        }
    }
}

TEST(cNumberConversionTest, usesTheSymbolsOfTheFormat)
{
    nstd::cNumberConversionFormat signs(3);
    for (unsigned int i = 0; i < 3; ++i)
        signs.setDigitSymbol(i, ".7\xe9"[i]);
    char const text[] = {'-', '\xe9', '7', '.', 0};
    expectWritten("", text, [&](auto& out) { cNumberConversion::toString(out, -21LL, signs); });
    EXPECT_EQ(cNumberConversion::fromString(nucs::cString(text), signs), -21);
    EXPECT_EQ(cNumberConversion::fromString(nstd::cAsciiString(text), signs), -21);
    EXPECT_EQ(cNumberConversion::toStringFromDouble(0.1, signs), "0.7"); // the leading 0 is no symbol
}

// Hands out at most three characters at a time, as a block device would.
class cPieces : public nstd::tAbstractConstArrayProxy<char> {
public:
    explicit cPieces(std::string text) : msText(text) { }
    char const& proxyAt(unsigned int i) const override { return msText.at(i); }
    unsigned int proxyLength() const override { return static_cast<unsigned int>(msText.size()); }
    void proxyCopyPartTo(char* target, unsigned int start, unsigned int count) const override
    {
        msText.copy(target, count, start);
    }
    char const* proxyProvideData(unsigned int start, unsigned int count) const override
    {
        EXPECT_LE(count, 3u);
        return msText.data() + start;
    }
    unsigned int proxyPreferredBlockSize() const override { return 3; }
    tAbstractConstArrayProxy const& constProxyPhysical(unsigned int& offset) const override
    {
        offset = 0;
        return *this;
    }

private:
    std::string msText;
};

// Calls `check` with every kind of text.
template<typename Check>
void withEveryText(std::string const& text, Check check)
{
    SCOPED_TRACE(text);
    check(nstd::cAsciiString(text.c_str()));
    check(nucs::cString(text.c_str()));
    cBytes const around(("7" + text + "7").c_str());
    check(cView(around, 1, around.length() - 2));
    check(nstd::tConstArrayRef<char, nstd::tArrayAsciiStringTraits<char>>(around, 1, around.length() - 2));
    cPieces const pieces(text);
    check(cView(pieces));
}

template<typename Number>
void expectRead(std::string const& source, Number value, cOptions options = {})
{
    withEveryText(source, [&](auto const& text) {
        if constexpr (std::is_same_v<Number, double>)
            EXPECT_DOUBLE_EQ(cNumberConversion::fromStringToDouble(text, options), value);
        else
            EXPECT_EQ(cNumberConversion::fromString(text, options), value);
    });
}

struct cReadRow {
    char const* text;
    long long value;
};

cReadRow const kRead[] = {
    {"", 0},          {"   ", 0},     {"-", 0},      {"--5", 5},    {"---5", -5},
    {"  -0x1A", -26}, {"0x-1f", -31}, {"0hff", 255}, {"<8>17", 15}, {"<36>zZ", 1295},
    {"<08>17", 15},   {"<1>000", 0},  {"<8>", 0},
};

TEST(cNumberConversionTest, readsIntegersFromEveryKindOfText)
{
    for (auto const& row : kRead)
        expectRead(row.text, row.value);
    expectRead("9223372036854775807", LLONG_MAX);
    expectRead("-9223372036854775808", LLONG_MIN);
    expectRead("18446744073709551618", 2); // modulo 2^64
    expectRead("0d10", 10, {16});
    expectRead("0b11", 3, {16});
    expectRead("0b", 11, {16}); // too short for a prefix
    expectRead("0b1", 177, {16, noPrefixes});
    expectRead("aF", 175, {16, upperCase});
    EXPECT_EQ(cNumberConversion::fromString(cView(), cOptions()), 0);
    EXPECT_EQ(cNumberConversion::fromString(cBytes("12", 2), cOptions()), 12);
}

template<typename Number>
void expectRefused(std::string const& source, unsigned int index, cOptions options = {})
{
    withEveryText(source, [&](auto const& text) {
        auto const error = ntest::raisedBy<nstd::cRuntimeException>([&] {
            if constexpr (std::is_same_v<Number, double>)
                cNumberConversion::fromStringToDouble(text, options);
            else
                cNumberConversion::fromString(text, options);
        });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), "Invalid decimal number (\"" + source + "\"). Character at index "
                                                + std::to_string(index) + " not points to digit!");
    });
}

struct cRefusedRow {
    char const* text;
    unsigned int index;
};

TEST(cNumberConversionTest, namesTheCharacterThatIsNoDigit)
{
    cRefusedRow const rows[] = {
        {"0X1A", 1},   {"12 ", 2},  {"\t1", 0},   {"- 1", 1}, {"1-2", 1},   {"+1", 0},
        {"<100>1", 0}, {"<0>1", 0}, {"<37>1", 0}, {"<16", 0}, {"<1>01", 4}, {"<base:8>1", 0},
    };
    for (auto const& row : rows)
        expectRefused<long long>(row.text, row.index);
    expectRefused<long long>("fg", 1, {16});
    expectRefused<long long>("  128", 4, {8});
    expectRefused<long long>("0x10", 1, {10, noPrefixes});
    expectRefused<long long>(" 1", 0, {10, spacesCount});
}

TEST(cNumberConversionTest, comparesWholeCodePoints)
{
    nucs::cString text("1");
    text.append(0x130); // its low byte is that of "0"
    EXPECT_TRUE(
        ntest::raisedBy<nstd::cRuntimeException>([&] { cNumberConversion::fromString(text, cOptions()); }));
    EXPECT_TRUE(ntest::raisedBy<nstd::cRuntimeException>(
        [&] { cNumberConversion::fromStringToDouble(text, cOptions()); }));
}

// What is not finite replaces the text, anything else is appended to it.
void expectDouble(double value, std::string const& text, cOptions options = {})
{
    expectWritten("x", (std::isfinite(value) ? "x" : "") + text,
                  [&](auto& out) { cNumberConversion::toStringFromDouble(out, value, options); });
}

TEST(cNumberConversionTest, writesDoublesToEveryKindOfText)
{
    expectDouble(3.0, "3");
    expectDouble(-0.0, "0");
    expectDouble(-0.125, "-0.125");
    expectDouble(17.5, "17.5", {16, 0, 9}); // neither base nor width count
    expectDouble(-0.001, "-0", {10, 0, 0, 2});
    expectDouble(0.1, "0.1", {10, 0, 0, 3});
    expectDouble(0.1, "0.100", {10, zerosStay, 0, 3});
    expectDouble(1.996, "2", {10, 0, 0, 2});
    expectDouble(99.95, "100.0", {10, zerosStay, 0, 1});
    expectDouble(2.5, "3", {10, 0, 0, 0});
    expectDouble(2.75, "2", {10, noFraction});
    expectDouble(-12.25, "25", {10, noInteger});
    expectDouble(12.0, "", {10, noInteger});
    expectDouble(12.0, "000", {10, noInteger | zerosStay, 0, 3});
    expectDouble(1234567890.5, "1234567890.5", {10, 0, 0, 2});
    expectDouble(std::nan(""), "nan");
    expectDouble(kInfinite, "+inf");
    expectDouble(-kInfinite, "-inf");
}

// Beyond the fifteenth digit only their number is certain.
TEST(cNumberConversionTest, hugeDoublesAndPrecisionsHaveAllTheirDigits)
{
    auto const huge = cNumberConversion::toStringFromDouble(-kGreatest, cOptions{10, zerosStay});
    EXPECT_EQ(huge.length(), 1u + 309 + 1 + 14);
    EXPECT_TRUE(huge.beginsWith("-1797", 5));
    EXPECT_TRUE(huge.endsWith(".00000000000000", 15));

    for (double value : {0.0, std::numeric_limits<double>::denorm_min(), 0.5, 1e300, kGreatest}) {
        SCOPED_TRACE(value);
        auto const text = cNumberConversion::toStringFromDouble(value, cOptions{10, zerosStay, 0, 3000});
        bool found = false;
        EXPECT_EQ(text.length() - text.find('.', found), 3001u);
        EXPECT_TRUE(text.endsWith("000", 3));
        // The zeros that are left out are not even made.
        auto const trimmed = cNumberConversion::toStringFromDouble(value, cOptions{10, 0, 0, 4000000000u});
        EXPECT_LT(trimmed.length(), 1000u);
    }
}

TEST(cNumberConversionTest, readsDoublesFromEveryKindOfText)
{
    struct {
        std::string text;
        double value;
    } const rows[] = {
        {"", 0.0},        {"  ", 0.0},     {"-", 0.0},     {"1.5e3", 1500.0}, {"-2.5E-1", -0.25},
        {"  12", 12.0},   {"+-+1", -1.0},  {"--1", 1.0},   {"1.", 1.0},       {"1e", 1.0},
        {"1e--2", 100.0}, {"1e+2", 100.0}, {"1-e2", 0.01}, {"1-2", 12.0},     {"1e-400", 0.0},
    };
    for (auto const& row : rows) // after a digit a sign is that of the exponent
        expectRead(row.text, row.value);
    expectRead("10", 10.0, {16}); // the base does not count
    expectRead("1e400", kInfinite);
    expectRead("-1e400", -kInfinite);
    expectRead("0e99999999999999999999", 0.0);
    expectRead("1e99999999999999999999", kInfinite);
    expectRead("1e-99999999999999999999", 0.0);
    expectRead(std::string(400, '1') + "e-500", kInfinite);
    expectRead("0." + std::string(500, '0') + "1", 0.0);
    EXPECT_EQ(cNumberConversion::fromStringToDouble(cView(), cOptions()), 0.0);
}

TEST(cNumberConversionTest, namesTheCharacterThatIsNoPartOfADouble)
{
    cRefusedRow const rows[] = {
        {"1,5", 1},   {".5", 0},   {"e3", 0},  {"1e2.5", 3}, {"1e2-", 3},
        {"1e2e3", 3}, {"1.5 ", 3}, {"0x1", 1}, {"inf", 0},
    };
    for (auto const& row : rows)
        expectRefused<double>(row.text, row.index);
    expectRefused<double>(" 1", 0, {10, spacesCount});
}

TEST(cNumberConversionTest, doublesSurviveTheWayThroughText)
{
    std::mt19937_64 random(2);
    for (int i = 0; i < 1000; ++i) {
        double const value = std::round(std::uniform_real_distribution<>(-1e8, 1e8)(random) * 1e5) / 1e5;
        auto const text = cNumberConversion::toStringFromDouble(value, cOptions{10, 0, 0, 5});
        double const back = cNumberConversion::fromStringToDouble(text, cOptions());
        ASSERT_NEAR(back, value, std::fabs(value) * 1e-14) << text.c_str();
        ASSERT_NEAR(std::strtod(text.c_str(), nullptr), value, std::fabs(value) * 1e-14) << text.c_str();
    }
}

TEST(cNumberConversionTest, plainIntegersAndLiteralsNeedNoCast)
{
    nstd::cNumberConversionFormat const hexadecimal(16);
    EXPECT_EQ(ntest::text(nstd::cNumberConversion::toString(255, hexadecimal)), "ff");
    EXPECT_EQ(ntest::text(nstd::cNumberConversion::toString(4294967295u, hexadecimal)), "ffffffff");
    nstd::cAsciiString out("=");
    nstd::cNumberConversion::toString(out, -1, hexadecimal);
    EXPECT_EQ(ntest::text(out), "=-1");
    EXPECT_EQ(nstd::cNumberConversion::fromString("-1f", hexadecimal), -31);
    EXPECT_EQ(nstd::cNumberConversion::fromStringToDouble("2.5", hexadecimal), 2.5);
}

} // namespace
