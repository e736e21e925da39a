#include "nel_core/pi/cAbstractOut.h"

#include <gtest/gtest.h>

#include "nel_core/np/cLocker.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAsciiString.h"
#include "tests/support/cSystemFixture.h"

namespace {

using npi::cAbstractOut;

class cTextOut : public cAbstractOut {
public:
    void printChar(char c) override { text += c; }
    void flush() override
    {
        cAbstractOut::flush();
        ++flushes;
    }

    std::string take() { return std::exchange(text, std::string()); }

    std::string text;
    int flushes = 0;
};

class cAbstractOutTest : public ntest::cSystemFixture { };

TEST_F(cAbstractOutTest, numberModes)
{
    struct cStep {
        int mode; ///< -1: none
        int value;
        char const* text;
    };
    struct {
        char const* name;
        std::vector<cStep> steps;
    } const rows[] = {
        {"16 digits", {{1, 255, "00000000000000ff"}}},
        {"8 digits stay for base 16", {{2, 255, "000000ff"}, {0, 255, "000000ff"}}},
        {"4 digits", {{3, 255, "00ff"}, {4, 255, "ff"}, {-1, 4095, "fff"}}},
        {"2 digits once", {{8, 10, "0a"}, {-1, 10, "10"}}},
        {"once drops all that was set before", {{2, 1, "00000001"}, {8, 1, "01"}, {-1, 255, "255"}}},
        {"no digits named after once", {{6, 255, "000000ff"}, {0, 255, "ff"}}},
        {"an unknown mode changes nothing", {{0, 255, "ff"}, {77, 255, "ff"}}},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        cTextOut out;
        for (auto const& step : row.steps) {
            if (step.mode >= 0)
                out << static_cast<cAbstractOut::NumberFmt>(step.mode);
            out << step.value;
            EXPECT_EQ(out.take(), step.text);
        }
    }
}

TEST_F(cAbstractOutTest, anOwnFormatStandsBeforeTheSystemsDefault)
{
    auto& systemFormat = npi::system().defaults.numberFormat;
    systemFormat.setBase(2);
    cTextOut out;
    out << 5 << " " << cAbstractOut::nfNextHex8 << nstd::cNumberConversionFormat(8) << 9 << 9;
    EXPECT_EQ(out.take(), "101 1111");
    systemFormat.setBase(10);
}

TEST_F(cAbstractOutTest, textKeepsEveryCharacterAndLineFeedsBecomeTwo)
{
    cTextOut out;
    char const* const none = nullptr;
    nstd::cAsciiString withZero("a");
    withZero += '\0';
    withZero += "b\n";
    out << none << "%s\n\r" << withZero << "";
    EXPECT_EQ(out.take(), std::string("%s\r\n\ra\0b\r\n", 10));
}

TEST_F(cAbstractOutTest, aLinkedOutputDoesEverything)
{
    cTextOut first;
    cTextOut second;
    cTextOut last;
    first.link(&second);
    second.link(&last);
    first.debugMessage("file", 7) << "a\n"
                                  << nstd::cAsciiString("b") << cAbstractOut::nfHex << 255 << 255u << 255LL
                                  << 255ULL << 0.5 << cAbstractOut::unindent() << cAbstractOut::indent()
                                  << cAbstractOut::indent() << cAbstractOut::unindent();
    first.flush();
    EXPECT_EQ(last.take(), "a\r\nbffffffff0.5");
    EXPECT_STREQ(last.debugFileName(), "file");
    EXPECT_EQ(last.indentionLevel(), 1u);
    EXPECT_EQ(last.flushes, 1);
    for (auto const* passing : {&first, &second}) {
        EXPECT_EQ(passing->text, "");
        EXPECT_EQ(passing->debugFileName(), nullptr);
        EXPECT_EQ(passing->indentionLevel(), 0u);
    }
}

TEST_F(cAbstractOutTest, aLinkThatClosesARingIsIgnored)
{
    cTextOut first;
    cTextOut second;
    cTextOut third;
    first.link(&second);
    second.link(&third);
    third.link(&first);
    third.link(&third);
    second.link(&first);
    first << "x";
    EXPECT_EQ(third.take(), "x");
}

} // namespace
