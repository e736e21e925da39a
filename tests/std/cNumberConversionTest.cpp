#include "nel_core/std/cNumberConversion.h"

#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

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
using nstd::cNumberConversionFormat;
using cBytes = nstd::tArray<char>;
using cView = nstd::tConstArrayRef<char>;

std::string textOf(cBytes const& bytes)
{
    return std::string(bytes.data(true), bytes.length());
}

template<typename... Setters>
cNumberConversionFormat format(unsigned int base, Setters... setters)
{
    cNumberConversionFormat result(base);
    (setters(result), ...);
    return result;
}

using cFormat = cNumberConversionFormat;

auto width(unsigned int n)
{
    return [=](cFormat& f) { f.setFixedWidth(n); };
}
auto precision(unsigned int n)
{
    return [=](cFormat& f) { f.setPrecision(n); };
}
auto const upperCase = [](cFormat& f) { f.setDigitCase(cFormat::dcUpper); };
auto const fillWithSpaces = [](cFormat& f) { f.setLeadingDigit(' '); };
auto const noDetection = [](cFormat& f) { f.setBaseDetectionEnabled(false); };
auto const keepSpaces = [](cFormat& f) { f.setIgnoreLeadingSpaces(false); };
auto const keepZeros = [](cFormat& f) { f.setRemoveTrailingZeros(false); };
auto const onlyFraction = [](cFormat& f) { f.addIntegerPart(false); };
auto const onlyInteger = [](cFormat& f) { f.addFractionalPart(false); };

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

struct cIntegerRow {
    char const* name;
    long long value;
    cNumberConversionFormat format;
    std::string text;
};

cIntegerRow const kIntegers[] = {
    {"zero", 0, format(10), "0"},
    {"one digit", 7, format(10), "7"},
    {"odd number of digits", 12345, format(10), "12345"},
    {"round number", 1000000, format(10), "1000000"},
    {"least", LLONG_MIN, format(10), "-9223372036854775808"},
    {"least in base 2", LLONG_MIN, format(2), "-1" + std::string(63, '0')},
    {"base 16", 255, format(16), "ff"},
    {"upper case", 255, format(16, upperCase), "FF"},
    {"base 36", -1295, format(36), "-zz"},
    {"width", 255, format(16, width(4)), "00ff"},
    {"width of spaces", 255, format(16, width(4), fillWithSpaces), "  ff"},
    {"sign in front of the filling", -5, format(10, width(4)), "-005"},
    {"sign in front of spaces", -5, format(10, width(4), fillWithSpaces), "-  5"},
    {"width 1", -5, format(10, width(1)), "-5"},
    {"width just reached", -5, format(10, width(2)), "-5"},
    {"zero filled", 0, format(10, width(3)), "000"},
    {"width 128", -5, format(10, width(128)), "-" + std::string(126, '0') + "5"},
    {"width 129", -5, format(10, width(129)), "-" + std::string(127, '0') + "5"},
    {"width 300", 5, format(10, width(300)), std::string(299, '0') + "5"},
};

TEST(cNumberConversionTest, writesIntegersToEveryKindOfText)
{
    for (auto const& row : kIntegers) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(cNumberConversion::toString(row.value, row.format), row.text.c_str());

        nucs::cString unicode;
        cNumberConversion::toString(unicode, row.value, row.format);
        EXPECT_TRUE(unicode == row.text.c_str());

        cBytes bytes;
        cNumberConversion::toString(bytes, row.value, row.format);
        EXPECT_EQ(textOf(bytes), row.text);

        cBytes around("[]", 2);
        nstd::tArrayRef<char> view(around, 1, 0);
        cNumberConversion::toString(view, row.value, row.format);
        EXPECT_EQ(textOf(around), "[" + row.text + "]");
    }
}

TEST(cNumberConversionTest, appendsToWhatIsThere)
{
    nstd::cAsciiString text("n=");
    cNumberConversion::toString(text, -12LL, format(10));
    cNumberConversion::toString(text, ULLONG_MAX, format(10));
    EXPECT_EQ(text, "n=-1218446744073709551615");
    cNumberConversion::toStringFromDouble(text, 0.5, format(10));
    EXPECT_EQ(text, "n=-12184467440737095516150.5");
}

TEST(cNumberConversionTest, everyBaseAgreesWithTheStandardLibrary)
{
    std::mt19937_64 random(1);
    for (unsigned int base = 2; base <= 36; ++base) {
        for (int i = 0; i < 100; ++i) {
            auto const value = static_cast<long long>(random() >> (random() % 64)) * (i % 2 == 0 ? 1 : -1);
            char expected[80];
            *std::to_chars(expected, expected + 79, value, static_cast<int>(base)).ptr = 0;
            auto const text = cNumberConversion::toString(value, format(base));
            ASSERT_EQ(text, expected) << "base " << base;
            ASSERT_EQ(cNumberConversion::fromString(text, format(base, noDetection)), value) << expected;
        }
    }
}

TEST(cNumberConversionTest, usesTheSymbolsOfTheFormat)
{
    auto signs = format(3);
    for (unsigned int i = 0; i < 3; ++i)
        signs.setDigitSymbol(i, ".7\xe9"[i]);
    nucs::cString unicode;
    cNumberConversion::toString(unicode, -21LL, signs);
    EXPECT_TRUE(unicode
                == "-\xe9"
                   "7.");
    EXPECT_EQ(cNumberConversion::fromString(unicode, signs), -21);
    EXPECT_EQ(cNumberConversion::fromString(nstd::cAsciiString("-\xe9"
                                                               "7."),
                                            signs),
              -21);
    EXPECT_EQ(cNumberConversion::toStringFromDouble(0.1, signs), "0.7"); // the leading 0 is no symbol
}

struct cParsedRow {
    char const* name;
    char const* text;
    cNumberConversionFormat format;
    long long value;
};

cParsedRow const kParsed[] = {
    {"nothing", "", format(10), 0},
    {"only spaces", "   ", format(10), 0},
    {"only a sign", "-", format(10), 0},
    {"spaces, sign and prefix", "  -0x1A", format(10), -26},
    {"0h", "0hff", format(10), 255},
    {"0d wins over the base", "0d10", format(16), 10},
    {"0b wins over the base", "0b11", format(16), 3},
    {"too short for a prefix", "0b", format(16), 11},
    {"no prefix when switched off", "0b1", format(16, noDetection), 177},
    {"sign after the prefix", "0x-1f", format(10), -31},
    {"bracketed base", "<8>17", format(10), 15},
    {"two bracketed digits", "<36>zZ", format(10), 1295},
    {"leading zero in brackets", "<08>17", format(10), 15},
    {"base 1", "<1>000", format(10), 0},
    {"brackets alone", "<8>", format(10), 0},
    {"two signs", "--5", format(10), 5},
    {"three signs", "---5", format(10), -5},
    {"both cases", "aF", format(16), 175},
    {"both cases with upper-case symbols", "aF", format(16, upperCase), 175},
    {"greatest", "9223372036854775807", format(10), LLONG_MAX},
    {"least", "-9223372036854775808", format(10), LLONG_MIN},
    {"modulo 2^64", "18446744073709551618", format(10), 2},
};

TEST(cNumberConversionTest, readsIntegersFromEveryKindOfText)
{
    for (auto const& row : kParsed) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(cNumberConversion::fromString(nstd::cAsciiString(row.text), row.format), row.value);
        EXPECT_EQ(cNumberConversion::fromString(nucs::cString(row.text), row.format), row.value);
        cBytes const bytes((std::string("7") + row.text + "7").c_str());
        EXPECT_EQ(cNumberConversion::fromString(cView(bytes, 1, bytes.length() - 2), row.format), row.value);
        cPieces const pieces(row.text);
        EXPECT_EQ(cNumberConversion::fromString(cView(pieces), row.format), row.value);
    }
    EXPECT_EQ(cNumberConversion::fromString(cView(), format(10)), 0);
    EXPECT_EQ(cNumberConversion::fromStringToDouble(cView(), format(10)), 0.0);
}

struct cRefusedRow {
    char const* name;
    std::string text;
    cNumberConversionFormat format;
    unsigned int index;
};

template<typename Read>
void expectRefused(cRefusedRow const& row, Read read)
{
    SCOPED_TRACE(row.name);
    auto const error = ntest::raisedBy<nstd::cRuntimeException>(read);
    ASSERT_TRUE(error.has_value());
    EXPECT_NE(ntest::messageOf(*error).find("(\"" + row.text + "\"). Character at index "
                                            + std::to_string(row.index) + " not points to digit!"),
              std::string::npos)
        << ntest::messageOf(*error);
}

TEST(cNumberConversionTest, namesTheCharacterThatIsNoDigit)
{
    cRefusedRow const rows[] = {
        {"upper-case prefix", "0X1A", format(10), 1},
        {"prefix when switched off", "0x10", format(10, noDetection), 1},
        {"trailing space", "12 ", format(10), 2},
        {"tab in front", "\t1", format(10), 0},
        {"space that counts", " 1", format(10, keepSpaces), 0},
        {"space after the sign", "- 1", format(10), 1},
        {"sign after a digit", "1-2", format(10), 1},
        {"plus", "+1", format(10), 0},
        {"digit beyond the base", "  128", format(8), 4},
        {"letter beyond the base", "fg", format(16), 1},
        {"base of three digits", "<100>1", format(10), 0},
        {"base 0", "<0>1", format(10), 0},
        {"base 37", "<37>1", format(10), 0},
        {"open bracket", "<16", format(10), 0},
        {"digit of base 1", "<1>01", format(10), 4},
        {"the other bracket form", "<base:8>1", format(10), 0},
    };
    for (auto const& row : rows) {
        nstd::cAsciiString const ascii(row.text.c_str());
        expectRefused(row, [&] { cNumberConversion::fromString(ascii, row.format); });
        expectRefused(row,
                      [&] { cNumberConversion::fromString(nucs::cString(row.text.c_str()), row.format); });
        expectRefused(row, [&] { cNumberConversion::fromString(cView(ascii), row.format); });
        cPieces const pieces(row.text);
        expectRefused(row, [&] { cNumberConversion::fromString(cView(pieces), row.format); });
    }
}

TEST(cNumberConversionTest, comparesWholeCodePoints)
{
    nucs::cString text("1");
    text.append(0x130);
    EXPECT_TRUE(
        ntest::raisedBy<nstd::cRuntimeException>([&] { cNumberConversion::fromString(text, format(10)); }));
    EXPECT_TRUE(ntest::raisedBy<nstd::cRuntimeException>(
        [&] { cNumberConversion::fromStringToDouble(text, format(10)); }));
}

struct cDoubleRow {
    char const* name;
    double value;
    cNumberConversionFormat format;
    std::string text;
};

TEST(cNumberConversionTest, writesDoublesToEveryKindOfText)
{
    double const inf = std::numeric_limits<double>::infinity();
    cDoubleRow const rows[] = {
        {"fraction", 2.5, format(10), "2.5"},
        {"whole", 3.0, format(10), "3"},
        {"zero", 0.0, format(10), "0"},
        {"negative", -0.125, format(10), "-0.125"},
        {"negative zero", -0.0, format(10), "0"},
        {"rounded to zero", -0.001, format(10, precision(2)), "-0"},
        {"the base does not count", 17.0, format(16), "17"},
        {"precision", 0.1, format(10, precision(3)), "0.1"},
        {"zeros kept", 0.1, format(10, precision(3), keepZeros), "0.100"},
        {"zeros kept on a whole number", 4.0, format(10, precision(2), keepZeros), "4.00"},
        {"rounds up", 1.996, format(10, precision(2)), "2"},
        {"rounds up into a new digit", 99.95, format(10, precision(1), keepZeros), "100.0"},
        {"precision 0", 2.5, format(10, precision(0)), "3"},
        {"no fraction", 2.75, format(10, onlyInteger), "2"},
        {"only the fraction", -12.25, format(10, onlyFraction), "25"},
        {"only a fraction of zeros", 12.0, format(10, onlyFraction), ""},
        {"only a fraction of kept zeros", 12.0, format(10, onlyFraction, keepZeros, precision(3)), "000"},
        {"integer digits", 1234567890.5, format(10, precision(2)), "1234567890.5"},
        {"fifteen digits", 0.5, format(10, precision(15)), "0.5"},
        {"not a number", std::nan(""), format(10), "nan"},
        {"infinite", inf, format(10), "+inf"},
        {"negative infinite", -inf, format(10), "-inf"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(cNumberConversion::toStringFromDouble(row.value, row.format), row.text.c_str());

        // What is not finite replaces the text, anything else is appended to it.
        std::string const before = std::isfinite(row.value) ? "x" : "";
        nucs::cString unicode("x");
        cNumberConversion::toStringFromDouble(unicode, row.value, row.format);
        EXPECT_TRUE(unicode == (before + row.text).c_str());
        cBytes bytes("x", 1);
        cNumberConversion::toStringFromDouble(bytes, row.value, row.format);
        EXPECT_EQ(textOf(bytes), before + row.text);
        cBytes around("[x]", 3);
        nstd::tArrayRef<char> view(around, 1, 1);
        cNumberConversion::toStringFromDouble(view, row.value, row.format);
        EXPECT_EQ(textOf(around), "[" + before + row.text + "]");
    }
}

// Beyond the fifteenth digit only their number is certain.
TEST(cNumberConversionTest, hugeDoublesAndPrecisionsHaveAllTheirDigits)
{
    auto const greatest = std::numeric_limits<double>::max();
    auto const huge = cNumberConversion::toStringFromDouble(-greatest, format(10, keepZeros));
    EXPECT_EQ(huge.length(), 1u + 309 + 1 + 14);
    EXPECT_TRUE(huge.beginsWith("-1797", 5));
    EXPECT_TRUE(huge.endsWith(".00000000000000", 15));

    double const least = std::numeric_limits<double>::denorm_min();
    for (double value : {0.0, least, 0.5, 1e300, greatest}) {
        SCOPED_TRACE(value);
        auto const text =
            cNumberConversion::toStringFromDouble(value, format(10, precision(3000), keepZeros));
        bool found = false;
        EXPECT_EQ(text.length() - text.find('.', found), 3001u);
        EXPECT_TRUE(text.endsWith("000", 3));
        // The zeros that are left out are not even made.
        EXPECT_LT(cNumberConversion::toStringFromDouble(value, format(10, precision(4000000000u))).length(),
                  1000u);
    }
}

struct cParsedDoubleRow {
    char const* text;
    double value;
};

TEST(cNumberConversionTest, readsDoubles)
{
    double const inf = std::numeric_limits<double>::infinity();
    std::string const ones(400, '1');
    std::string const manyOnes = ones + "e-500";
    std::string const longFraction = "0." + std::string(500, '0') + "1";
    cParsedDoubleRow const rows[] = {
        {"", 0.0},
        {"  ", 0.0},
        {"-", 0.0},
        {"1.5e3", 1500.0},
        {"-2.5E-1", -0.25},
        {"  12", 12.0},
        {"+-+1", -1.0},
        {"--1", 1.0},
        {"1.", 1.0},
        {"1e", 1.0},
        {"1-e2", 0.01}, // after a digit a sign is that of the exponent
        {"1e--2", 100.0},
        {"1e+2", 100.0},
        {"1-2", 12.0},
        {"1.5e", 1.5},
        {"0.125", 0.125},
        {"1e400", inf},
        {"-1e400", -inf},
        {"1e-400", 0.0},
        {"0e99999999999999999999", 0.0},
        {"1e99999999999999999999", inf},
        {"1e-99999999999999999999", 0.0},
        {ones.c_str(), inf},
        {manyOnes.c_str(), inf},
        {longFraction.c_str(), 0.0},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_DOUBLE_EQ(cNumberConversion::fromStringToDouble(nstd::cAsciiString(row.text), format(16)),
                         row.value);
        EXPECT_DOUBLE_EQ(cNumberConversion::fromStringToDouble(nucs::cString(row.text), format(10)),
                         row.value);
        cPieces const pieces(row.text);
        EXPECT_DOUBLE_EQ(cNumberConversion::fromStringToDouble(cView(pieces), format(10)), row.value);
    }
}

TEST(cNumberConversionTest, namesTheCharacterThatIsNoPartOfADouble)
{
    cRefusedRow const rows[] = {
        {"comma", "1,5", format(10), 1},
        {"no digit before the point", ".5", format(10), 0},
        {"no digit before the exponent", "e3", format(10), 0},
        {"point in the exponent", "1e2.5", format(10), 3},
        {"sign after the exponent", "1e2-", format(10), 3},
        {"second exponent", "1e2e3", format(10), 3},
        {"trailing space", "1.5 ", format(10), 3},
        {"no prefix", "0x1", format(10), 1},
        {"space that counts", " 1", format(10, keepSpaces), 0},
        {"name", "inf", format(10), 0},
    };
    for (auto const& row : rows) {
        nstd::cAsciiString const ascii(row.text.c_str());
        expectRefused(row, [&] { cNumberConversion::fromStringToDouble(ascii, row.format); });
        expectRefused(row, [&] { cNumberConversion::fromStringToDouble(cView(ascii), row.format); });
    }
}

TEST(cNumberConversionTest, doublesSurviveTheWayThroughText)
{
    std::mt19937_64 random(2);
    for (int i = 0; i < 1000; ++i) {
        double const value = std::round(std::uniform_real_distribution<>(-1e8, 1e8)(random) * 1e5) / 1e5;
        auto const text = cNumberConversion::toStringFromDouble(value, format(10, precision(5)));
        double const back = cNumberConversion::fromStringToDouble(text, format(10));
        ASSERT_NEAR(back, value, std::fabs(value) * 1e-14) << text.c_str();
        ASSERT_NEAR(std::strtod(text.c_str(), nullptr), value, std::fabs(value) * 1e-14) << text.c_str();
    }
}

} // namespace
