#include "nel_core/std/cNumberConversionFormat.h"

#include <string>

#include <gtest/gtest.h>

#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using nstd::cNumberConversionFormat;

TEST(cNumberConversionFormatTest, startsWithTheDocumentedDefaults)
{
    cNumberConversionFormat const format(16);
    EXPECT_EQ(format.base(), 16u);
    EXPECT_EQ(format.fixedWidth(), 0u);
    EXPECT_EQ(format.leadingDigit(), '0');
    EXPECT_EQ(format.digitCase(), cNumberConversionFormat::dcLower);
    EXPECT_TRUE(format.ignoreLeadingSpaces());
    EXPECT_TRUE(format.baseDetectionEnabled());
    EXPECT_STREQ(format.getDigitSymbolSet(), "0123456789abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(format.precision(), 14u);
    EXPECT_TRUE(format.isRemoveTrainlingZeros());
    EXPECT_TRUE(format.isAddIntegerPart());
    EXPECT_TRUE(format.isAddFractionalPart());
}

TEST(cNumberConversionFormatTest, refusesOtherBasesAndKeepsItsOwn)
{
    cNumberConversionFormat format(36);
    format.setBase(2);
    for (unsigned int base : {0u, 1u, 37u, 0xFFFFFFFFu}) {
        auto const error = ntest::raisedBy<nstd::cRuntimeException>([&] { format.setBase(base); });
        ASSERT_TRUE(error.has_value()) << base;
        EXPECT_EQ(ntest::messageOf(*error),
                  "Invalid base for a decimal. The base must be between 2 and 36 but is "
                      + std::to_string(static_cast<int>(base)) + "!");
        EXPECT_EQ(format.base(), 2u);
        EXPECT_TRUE(ntest::raisedBy<nstd::cRuntimeException>([&] { cNumberConversionFormat made(base); }));
    }
}

TEST(cNumberConversionFormatTest, hasThirtySixSymbolsAndATerminator)
{
    cNumberConversionFormat format(10);
    format.setDigitSymbol(3, '#');
    EXPECT_EQ(format.digitChar(3), '#');
    format.setDigitCase(cNumberConversionFormat::dcUpper);
    EXPECT_STREQ(format.getDigitSymbolSet(), "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    format.setDigitCase(static_cast<cNumberConversionFormat::DigitCase>(7));
    EXPECT_STREQ(format.getDigitSymbolSet(), "0123456789abcdefghijklmnopqrstuvwxyz");

    format.setDigitSymbol(36, '!');
    EXPECT_EQ(format.digitChar(36), '!');
    auto const read = ntest::raisedBy<nstd::cOutOfRangeException>([&] { format.digitChar(37); });
    auto const written = ntest::raisedBy<nstd::cOutOfRangeException>([&] { format.setDigitSymbol(37, 'x'); });
    for (auto const& error : {read, written}) {
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->container(), "DigitSymbols");
        EXPECT_EQ(error->operation(), "at");
        EXPECT_EQ(error->rangeType(), cSTDExceptions::ortIndex);
        EXPECT_EQ(error->value(), 37);
        EXPECT_EQ(error->max(), 36);
    }
}

struct cPrefixRow {
    char const* text;
    unsigned int base;   ///< 0 when nothing is detected
    unsigned int length; ///< of the prefix
};

cPrefixRow const kPrefixes[] = {
    {"", 0, 0},           {"0x", 0, 0}, // too short
    {"0x1", 16, 2},       {"0hg", 16, 2},      {"0d1", 10, 2},      {"0b1", 2, 2},
    {"0X1", 0, 0},        {"-0x1", 0, 0},      {"<base:8>", 8, 8},  {"<base:36>12", 36, 9},
    {"<base:01>0", 1, 9}, {"<base:37>", 0, 0}, {"<base:0>1", 0, 0}, {"<base:>1", 0, 0},
    {"<base:100>", 0, 0}, {"<base:8", 0, 0},   {"<8>1", 0, 0}, // only conversions know this form
};

TEST(cNumberConversionFormatTest, detectsBasePrefixes)
{
    for (auto const& row : kPrefixes) {
        SCOPED_TRACE(row.text);
        nstd::cAsciiString const ascii(row.text);
        auto const expectDetected = [&](auto const& text) {
            unsigned int base = 0;
            unsigned int length = 0;
            EXPECT_EQ(cNumberConversionFormat::detectBase(text, base, length), row.base != 0);
            EXPECT_EQ(base, row.base);
            EXPECT_EQ(length, row.length);
        };
        expectDetected(ascii);
        expectDetected(nucs::cString(row.text));
        expectDetected(nstd::tConstArrayRef<char>(ascii));
        expectDetected(nstd::tConstArrayRef<char, nstd::tArrayAsciiStringTraits<char>>(ascii));
    }
}

class cDefaultFormatTest : public ntest::cSystemFixture { };

TEST_F(cDefaultFormatTest, theSystemsFormatServesConversionsWithoutOne)
{
    auto& format = npi::system().defaults.numberFormat;
    EXPECT_EQ(&cNumberConversionFormat::getGlobalDefaultNumberConversionFormat(), &format);
    EXPECT_EQ(format.base(), 10u);

    format.setBase(16);
    format.setFixedWidth(4);
    nstd::cAsciiString text("n=");
    text.addNum32(-26);
    EXPECT_EQ(text, "n=-01a");
    text.setUNum(0x12345);
    EXPECT_EQ(text, "12345");
    EXPECT_EQ(text.toInt(), 0x12345);
}

} // namespace
