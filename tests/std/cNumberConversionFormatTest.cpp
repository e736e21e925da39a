#include "nel_core/std/cNumberConversionFormat.h"

#include <string>

#include <gtest/gtest.h>

#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/expectRefusal.h"

namespace {

using nstd::cNumberConversionFormat;

TEST(cNumberConversionFormatTest, refusesOtherBasesAndKeepsItsOwn)
{
    cNumberConversionFormat format(36);
    format.setBase(2);
    for (unsigned int base : {1u, 37u, 0xFFFFFFFFu}) {
        auto const error = ntest::raisedBy<nstd::cRuntimeException>([&] { format.setBase(base); });
        ASSERT_TRUE(error.has_value()) << base;
        EXPECT_EQ(ntest::messageOf(*error),
                  "Invalid base for a decimal. The base must be between 2 and 36 but is "
                      + std::to_string(static_cast<int>(base)) + "!");
        EXPECT_EQ(format.base(), 2u);
    }
}

TEST(cNumberConversionFormatTest, hasThirtySixSymbolsAndATerminator)
{
    cNumberConversionFormat format(10);
    format.setDigitCase(cNumberConversionFormat::dcUpper);
    EXPECT_STREQ(format.getDigitSymbolSet(), "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    format.setDigitCase(static_cast<cNumberConversionFormat::DigitCase>(7));
    EXPECT_STREQ(format.getDigitSymbolSet(), "0123456789abcdefghijklmnopqrstuvwxyz");

    format.setDigitSymbol(36, '!');
    EXPECT_EQ(format.digitChar(36), '!');
    ntest::cRefusal const refusal = {"DigitSymbols", "at", cSTDExceptions::ortIndex, 37, 36};
    ntest::expectRefusal([&] { format.digitChar(37); }, refusal);
    ntest::expectRefusal([&] { format.setDigitSymbol(37, 'x'); }, refusal);
}

TEST(cNumberConversionFormatTest, detectsBasePrefixes)
{
    struct {
        char const* text;
        unsigned int base;   ///< 0 when nothing is detected
        unsigned int length; ///< of the prefix
    } const rows[] = {
        {"", 0, 0},          {"0x", 0, 0},           {"0x1", 16, 2},       {"0hg", 16, 2},
        {"0d1", 10, 2},      {"0b1", 2, 2},          {"0X1", 0, 0},        {"-0x1", 0, 0},
        {"<base:8>", 8, 8},  {"<base:36>12", 36, 9}, {"<base:01>0", 1, 9}, {"<base:37>", 0, 0},
        {"<base:0>1", 0, 0}, {"<base:>1", 0, 0},     {"<base:100>", 0, 0}, {"<base:8", 0, 0},
        {"<8>1", 0, 0},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.text);
        auto const expectDetected = [&](auto const& text) {
            unsigned int base = 0;
            unsigned int length = 0;
            EXPECT_EQ(cNumberConversionFormat::detectBase(text, base, length), row.base != 0);
            EXPECT_EQ(base, row.base);
            EXPECT_EQ(length, row.length);
        };
        expectDetected(nstd::cAsciiString(row.text));
        expectDetected(nucs::cString(row.text));
    }
}

class cDefaultFormatTest : public ntest::cSystemFixture { };

TEST_F(cDefaultFormatTest, theSystemsFormatServesConversionsWithoutOne)
{
    auto& format = npi::system().defaults.numberFormat;
    EXPECT_EQ(format.base(), 10u);
    format.setBase(16);
    format.setFixedWidth(4);
    nstd::cAsciiString text("n=");
    text.addNum32(-26);
    EXPECT_EQ(text, "n=-01a");
}

} // namespace
