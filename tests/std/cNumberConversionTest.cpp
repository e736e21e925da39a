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
#include "nel_core/std/tArrayRef.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cBlocks.h"
#include "tests/support/raisedBy.h"

namespace {

using nstd::cNumberConversion;
using cFormat = nstd::cNumberConversionFormat;

double const kInfinite = std::numeric_limits<double>::infinity();
double const kGreatest = std::numeric_limits<double>::max();

cFormat changed(unsigned int base, void (*change)(cFormat&))
{
    cFormat format(base);
    change(format);
    return format;
}

cFormat wide(unsigned int width, char fill = '0')
{
    cFormat format(10);
    format.setFixedWidth(width);
    format.setLeadingDigit(fill);
    return format;
}

cFormat precise(unsigned int precision, bool keepsZeros = false)
{
    cFormat format(10);
    format.setPrecision(precision);
    format.setRemoveTrailingZeros(!keepsZeros);
    return format;
}

// What is written to every kind of text that holds `before`, the view between brackets.
template<typename Number>
void expectWritten(std::string const& before, Number value, std::string const& expected,
                   cFormat const& format = cFormat(10))
{
    SCOPED_TRACE(expected);
    auto const write = [&](auto& out) {
        if constexpr (std::is_same_v<Number, double>)
            cNumberConversion::toStringFromDouble(out, value, format);
        else
            cNumberConversion::toString(out, value, format);
    };
    nstd::cAsciiString ascii(before.c_str());
    write(ascii);
    EXPECT_EQ(ascii, expected.c_str());
    nucs::cString unicode(before.c_str());
    write(unicode);
    EXPECT_EQ(unicode, expected.c_str());
    nstd::tArray<char> around(("[" + before + "]").c_str());
    nstd::tArrayRef<char> view(around, 1, around.length() - 2);
    write(view);
    EXPECT_EQ(std::string(around.data(true), around.length()), "[" + expected + "]");
}

TEST(cNumberConversionTest, writesToEveryKindOfText)
{
    expectWritten("n=", ULLONG_MAX, "n=18446744073709551615");
    expectWritten("", LLONG_MIN, "-1" + std::string(63, '0'), cFormat(2));
    expectWritten("", 0LL, "000", wide(3));
    expectWritten("", -5LL, "-  5", wide(4, ' '));
    expectWritten("", -5LL, "-5", wide(2));
    expectWritten("", -5LL, "-" + std::string(298, '0') + "5", wide(300));
    expectWritten("four", -5LL, "four-5", wide(4)); // the whole text has the width

    expectWritten("x", 17.5, "x17.5", wide(9)); // the width does not count
    expectWritten("x", -0.0, "x0");
    expectWritten("x", -0.001, "x-0", precise(2));
    expectWritten("x", 1.996, "x2", precise(2));
    expectWritten("x", 99.95, "x100.0", precise(1, true));
    expectWritten("x", 2.5, "x3", precise(0));
    auto const noInteger = changed(16, [](cFormat& format) { format.addIntegerPart(false); });
    expectWritten("x", -12.25, "x25", noInteger); // nor does the base
    expectWritten("x", 12.0, "x", noInteger);
    expectWritten("x", std::nan(""), "nan"); // what is not finite takes the text's place
    expectWritten("x", -kInfinite, "-inf");
}

TEST(cNumberConversionTest, everyBaseAgreesWithTheStandardLibrary)
{
    std::mt19937_64 random(1);
    for (unsigned int base = 2; base <= 36; ++base) {
        auto const format = changed(base, [](cFormat& f) { f.setBaseDetectionEnabled(false); });
        for (int i = 0; i < 100; ++i) {
            auto const value = static_cast<long long>(random() >> (random() % 64)) * (i % 2 == 0 ? 1 : -1);
            char expected[80];
            *std::to_chars(expected, expected + 79, value, static_cast<int>(base)).ptr = 0;
            auto const text = cNumberConversion::toString(value, format);
            ASSERT_EQ(text, expected) << "base " << base;
            ASSERT_EQ(cNumberConversion::fromString(text, format), value) << expected;
        }
    }
}

TEST(cNumberConversionTest, usesTheSymbolsOfTheFormat)
{
    cFormat signs(3);
    for (unsigned int i = 0; i < 3; ++i)
        signs.setDigitSymbol(i, ".7\xe9"[i]);
    expectWritten("", -21LL,
                  "-\xe9"
                  "7.",
                  signs);
    EXPECT_EQ(cNumberConversion::fromString(nucs::cString("-\xe9"
                                                          "7."),
                                            signs),
              -21);
    EXPECT_EQ(cNumberConversion::toStringFromDouble(0.1, signs), "0.7"); // the leading 0 is no symbol
}

// Calls `check` with what reads `source` from every kind of text.
template<typename Number, typename Check>
void read(std::string const& source, cFormat const& format, Check check)
{
    SCOPED_TRACE(source);
    auto const checkText = [&](auto const& text) {
        check([&] {
            if constexpr (std::is_same_v<Number, double>)
                return cNumberConversion::fromStringToDouble(text, format);
            else
                return cNumberConversion::fromString(text, format);
        });
    };
    checkText(nstd::cAsciiString(source.c_str()));
    checkText(nucs::cString(source.c_str()));
    ntest::cBlocks const blocks("7" + source + "7", 3);
    checkText(nstd::tConstArrayRef<char>(blocks, 1, blocks.proxyLength() - 2));
}

template<typename Number>
void expectRead(std::string const& source, Number value, cFormat const& format = cFormat(10))
{
    read<Number>(source, format, [&](auto call) {
        if constexpr (std::is_same_v<Number, double>)
            EXPECT_DOUBLE_EQ(call(), value);
        else
            EXPECT_EQ(call(), value);
    });
}

template<typename Number>
void expectRefused(std::string const& source, unsigned int index, cFormat const& format = cFormat(10))
{
    read<Number>(source, format, [&](auto call) {
        auto const error = ntest::raisedBy<nstd::cRuntimeException>(call);
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::messageOf(*error), "Invalid decimal number (\"" + source + "\"). Character at index "
                                                + std::to_string(index) + " not points to digit!");
    });
}

TEST(cNumberConversionTest, readsFromEveryKindOfText)
{
    struct {
        char const* text;
        long long value;
    } const integers[] = {
        {"   ", 0},       {"-", 0},       {"---5", -5},  {"  -0x1A", -26},
        {"<36>zZ", 1295}, {"<08>17", 15}, {"<1>000", 0}, {"<8>", 0},
    };
    for (auto const& row : integers)
        expectRead(row.text, row.value);
    expectRead("0b", 11LL, cFormat(16)); // too short for a prefix
    expectRead("-9223372036854775808", LLONG_MIN);
    expectRead("18446744073709551618", 2LL); // modulo 2^64

    struct {
        char const* text;
        double value;
    } const doubles[] = {
        {"  ", 0.0}, {"-", 0.0},  {"-2.5E-1", -0.25}, {"  12", 12.0}, {"+-+1", -1.0},
        {"1.", 1.0}, {"1e", 1.0}, {"1e--2", 100.0},   {"1-e2", 0.01}, {"1-2", 12.0},
    };
    for (auto const& row : doubles) // after a digit a sign is that of the exponent
        expectRead(row.text, row.value, cFormat(16));
    expectRead("-1e400", -kInfinite);
    expectRead("0e99999999999999999999", 0.0);
    expectRead("1e-99999999999999999999", 0.0);
    expectRead(std::string(400, '1') + "e-500", kInfinite);
    expectRead("0." + std::string(500, '0') + "1", 0.0);
}

TEST(cNumberConversionTest, namesTheCharacterThatIsNoDigit)
{
    struct cRow {
        char const* text;
        unsigned int index;
    };
    cRow const integers[] = {
        {"0X1A", 1},   {"12 ", 2},  {"\t1", 0},   {"- 1", 1}, {"1-2", 1},   {"+1", 0},
        {"<100>1", 0}, {"<0>1", 0}, {"<37>1", 0}, {"<16", 0}, {"<1>01", 4},
    };
    for (auto const& row : integers)
        expectRefused<long long>(row.text, row.index);
    expectRefused<long long>("  128", 4, cFormat(8));
    auto const spacesCount = changed(10, [](cFormat& format) { format.setIgnoreLeadingSpaces(false); });
    expectRefused<long long>(" 1", 0, spacesCount);
    cRow const doubles[] = {
        {"1,5", 1}, {".5", 0}, {"e3", 0}, {"1e2.5", 3}, {"1e2-", 3}, {"1e2e3", 3}, {"1.5 ", 3},
    };
    for (auto const& row : doubles)
        expectRefused<double>(row.text, row.index);
    expectRefused<double>(" 1", 0, spacesCount);

    nucs::cString text("1");
    text.append(0x130); // its low byte is that of "0"
    ntest::raisedBy<nstd::cRuntimeException>([&] { cNumberConversion::fromString(text, cFormat(10)); });
}

// Beyond the fifteenth digit only their number is certain.
TEST(cNumberConversionTest, hugeDoublesAndPrecisionsHaveAllTheirDigits)
{
    auto const huge = cNumberConversion::toStringFromDouble(-kGreatest, precise(14, true));
    EXPECT_EQ(huge.length(), 1u + 309 + 1 + 14);
    EXPECT_TRUE(huge.beginsWith("-1797", 5));

    for (double value : {0.0, std::numeric_limits<double>::denorm_min(), kGreatest}) {
        auto const text = cNumberConversion::toStringFromDouble(value, precise(3000, true));
        bool found = false;
        EXPECT_EQ(text.length() - text.find('.', found), 3001u) << value;
        // The zeros that are left out are not even made.
        auto const trimmed = cNumberConversion::toStringFromDouble(value, precise(4000000000u));
        EXPECT_LT(trimmed.length(), 1000u) << value;
    }
}

TEST(cNumberConversionTest, doublesSurviveTheWayThroughText)
{
    std::mt19937_64 random(2);
    for (int i = 0; i < 1000; ++i) {
        double const value = std::round(std::uniform_real_distribution<>(-1e8, 1e8)(random) * 1e5) / 1e5;
        auto const text = cNumberConversion::toStringFromDouble(value, precise(5));
        double const back = cNumberConversion::fromStringToDouble(text, precise(5));
        ASSERT_NEAR(back, value, std::fabs(value) * 1e-14) << text.c_str();
        ASSERT_NEAR(std::strtod(text.c_str(), nullptr), value, std::fabs(value) * 1e-14) << text.c_str();
    }
}

} // namespace
