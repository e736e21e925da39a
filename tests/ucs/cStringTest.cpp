#include "nel_core/ucs/cString.h"

#include <gtest/gtest.h>
#include <string>

#include "nel_core/pi/cAbstractOut.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using nucs::cString;

// Numbers are written in the system's default format.
class cStringTest : public ntest::cSystemFixture { };

struct cChange {
    char const* name;
    char const* before;
    void (*change)(cString& text);
    char const* after;
};

cChange const kChanges[] = {
    {"centre, even", "ab", [](cString& s) { s.adjust(6, '*'); }, "**ab**"},
    {"centre, odd", "abc", [](cString& s) { s.adjust(6, '*'); }, "*abc**"},
    {"centre one", "", [](cString& s) { s.adjust(1, '*'); }, "*"},
    {"centre, wide enough", "abc", [](cString& s) { s.adjust(3, '*'); }, "abc"},
    {"left", "ab", [](cString& s) { s.leftAdjust(4, '.'); }, "ab.."},
    {"left, too long", "abc", [](cString& s) { s.leftAdjust(2, '.'); }, "abc"},
    {"right", "ab", [](cString& s) { s.rightAdjust(7, '.'); }, ".....ab"},
    {"fixed, longer", "abcdefgh", [](cString& s) { s.setFixedLength(5, "...", ' '); }, "ab..."},
    {"fixed, shorter", "ab", [](cString& s) { s.setFixedLength(5, "...", ' '); }, "ab   "},
    {"fixed, exact", "abcde", [](cString& s) { s.setFixedLength(5, "...", ' '); }, "abcde"},
    {"fixed, long suffix", "abcdefgh", [](cString& s) { s.setFixedLength(1, "...", ' '); }, "..."},
    {"fixed, no suffix", "abc", [](cString& s) { s.setFixedLength(1, "", ' '); }, "a"},
    {"fixed, itself", "abc", [](cString& s) { s.setFixedLength(2, s, ' '); }, "abc"},
    {"trim, not tabs", "  \ta b\t  ", [](cString& s) { s.trim(); }, "\ta b\t"},
    {"trim all", "   ", [](cString& s) { s.trim(); }, ""},
    {"trim nothing", "", [](cString& s) { s.trim(); }, ""},
    {"trim left", " a ", [](cString& s) { s.ltrim(); }, "a "},
    {"trim right", " a ", [](cString& s) { s.rtrim(); }, " a"},
    {"upper", "aZ{`\xE9", [](cString& s) { s.upperCase(); }, "AZ{`\xE9"},
    {"lower", "aZ[@\xC9", [](cString& s) { s.lowerCase(); }, "az[@\xC9"},
    {"itself behind", "ab", [](cString& s) { s += s; }, "abab"},
    {"itself", "ab", [](cString& s) { s = s.array(); }, "ab"},
    {"bytes", "ab", [](cString& s) { s = "\xFF\x01"; }, "\xFF\x01"},
    {"no bytes", "ab", [](cString& s) { s = static_cast<char const*>(nullptr); }, ""},
    {"from no array", "ab", [](cString& s) { s = cString().array(); }, ""},
    {"counted bytes", "ab", [](cString& s) { s.appendC("cde", 2); }, "abcd"},
    {"ASCII", "ab", [](cString& s) { s.fromAscii("G\xFCn", 0x41); }, "GAn"},
    {"set", "ab", [](cString& s) { s.setNum32(-42); }, "-42"},
    {"set unsigned", "ab", [](cString& s) { s.setUNum(~0ULL); }, "18446744073709551615"},
    {"set double", "ab", [](cString& s) { s.setDouble(-0.125); }, "-0.125"},
    {"add", "a", [](cString& s) { s.addUNum32(~0u); }, "a4294967295"},
    {"add double", "a", [](cString& s) { s.addDouble(2.5); }, "a2.5"},
};

TEST_F(cStringTest, changesTheTextInPlace)
{
    for (auto const& row : kChanges) {
        SCOPED_TRACE(row.name);
        cString text(row.before);
        row.change(text);
        EXPECT_TRUE(text == row.after) << text.ascii().c_str();
    }
}

TEST_F(cStringTest, addsANumberApartFromTheText)
{
    nstd::cNumberConversionFormat format(16);
    format.setFixedWidth(4);
    cString text("0x");
    text.addNum(255, format);
    EXPECT_TRUE(text == "0x00ff");
    text.setNum(-5, format);
    EXPECT_TRUE(text == "-005");
}

TEST_F(cStringTest, readsTheWholeTextAsANumber)
{
    EXPECT_EQ(cString("-42").toInt(), -42);
    EXPECT_EQ(cString("ff").toUInt(nstd::cNumberConversionFormat(16)), 255u);
    EXPECT_EQ(cString("1.5e3").toDouble(), 1500.0);
    EXPECT_TRUE(ntest::raisedBy<nstd::cRuntimeException>([] { cString("12 ").toInt(); }).has_value());
}

TEST_F(cStringTest, keepsWideAndNarrowTextApart)
{
    cString const text(L"Gr\u00FC\u00DFe\U0001F600");
    EXPECT_EQ(text.length(), 6u);
    EXPECT_TRUE(text.ascii() == "Gr??e?");
    EXPECT_TRUE(text == L"Gr\u00FC\u00DFe\U0001F600");
    EXPECT_TRUE(text != L"Gr\u00FC\u00DFe");
    EXPECT_TRUE(text == cString(U"Gr\u00FC\u00DFe\U0001F600"));
    EXPECT_TRUE(std::u32string_view(text) == U"Gr\u00FC\u00DFe\U0001F600");

    nstd::cAsciiString target("<");
    text.toAscii(target, '!');
    EXPECT_TRUE(target == "<Gr!!e!");
    EXPECT_TRUE(cString("\xFC") == L"\u00FC");
    EXPECT_TRUE(cString(nstd::cAsciiString("a\xFC"), '\xB7') == "a\xB7");
}

TEST_F(cStringTest, comparesWithoutPoolsAndTerminators)
{
    cString used("a");
    used.truncate(0);
    EXPECT_TRUE(used == cString());
    EXPECT_TRUE(used == "");
    EXPECT_FALSE(used == static_cast<char const*>(nullptr));
    EXPECT_FALSE(used == static_cast<wchar_t const*>(nullptr));
    EXPECT_TRUE(cString("abc") == nstd::cAsciiString("abc"));
    EXPECT_TRUE(cString("abc") != "ab");
    EXPECT_TRUE(cString(L"\u0161") != "a");
}

TEST_F(cStringTest, growsInStepsOfFourAndNeverShrinks)
{
    cString text("abcde");
    EXPECT_EQ(text._poolSize(), 8u);
    text.truncate(0);
    EXPECT_EQ(text._poolSize(), 8u);
    cString moved(std::move(text));
    EXPECT_EQ(moved._poolSize(), 8u);
    text = "again";
    EXPECT_TRUE(text == "again" && text._poolSize() == 8);
}

class cCollector : public npi::cAbstractOut {
public:
    explicit cCollector(nucs::cAbstractEnDec const* enDec) : mpEnDec(enDec) { }
    void printChar(char c) override { msText += c; }
    nucs::cAbstractEnDec const* hasEnDec() const override { return mpEnDec; }

    std::string msText;

private:
    nucs::cAbstractEnDec const* mpEnDec;
};

TEST_F(cStringTest, isWrittenInTheEncodingOfTheOutput)
{
    nucs::cEnDecUTF8 const utf8;
    cCollector encoded(&utf8);
    cCollector plain(nullptr);
    encoded << cString(L"e\u00E9") << 1;
    plain << cString(L"e\u00E9") << 1;
    EXPECT_EQ(encoded.msText, "e\xC3\xA9"
                              "1");
    EXPECT_EQ(plain.msText, "e?1");
}

} // namespace
