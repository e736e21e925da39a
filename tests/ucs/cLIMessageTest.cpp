#include "nel_core/ucs/cLIMessage.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/ucs/cLIItem.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"
#include "tests/support/storedForm.h"

namespace {

using nucs::cLIMessage;
using nucs::cString;

// Numbers are written in the system's default format.
class cLIMessageTest : public ntest::cSystemFixture { };

std::string untranslated(cLIMessage const& message)
{
    nstd::cAsciiString text("old");
    message.untranslated(text);
    return std::string(text.c_str(), text.length());
}

std::string translated(cLIMessage const& message, cString const& translation)
{
    cString text("old");
    message.translate(translation, text);
    nstd::cAsciiString const ascii = text.ascii();
    return std::string(ascii.c_str(), ascii.length());
}

struct cRendering {
    char const* name;
    cLIMessage message;
    char const* text;
};

TEST_F(cLIMessageTest, fillsPlaceholdersByPosition)
{
    cRendering const renderings[] = {
        {"three numbers", cLIMessage() << "$MTR$Invalid date %m%/%d%/%y%!" << 2 << 30 << 9,
         "Invalid date 2/30/9!"},
        {"too few", cLIMessage() << "$MTR$Invalid date %m%/%d%/%y%!" << 2 << 30,
         "Invalid date 2/30/???"
         "!"},
        {"too many", cLIMessage() << "$MTR$Invalid date %m%/%d%/%y%!" << 2 << 30 << 9 << 4,
         "Invalid date 2/30/9!"},
        {"empty", cLIMessage(), ""},
        {"empty with a string", cLIMessage() << cString("x") << 1, ""},
        {"marker in the middle", cLIMessage() << "a $MTR$ b", "a $MTR$ b"},
        {"both markers", cLIMessage() << "$MTR$$MNTR$a", "a"},
        {"wrong order", cLIMessage() << "$MNTR$$MTR$a", "$MTR$a"},
        {"verbatim key", cLIMessage(nstd::cAsciiString("$MTR$a%x%")) << "b", "$MTR$ab"},
        {"marker alone",
         cLIMessage() << "$MTR$"
                      << "$MTR$b%x%" << 1,
         "b1"},
        {"no text at all", cLIMessage() << static_cast<char const*>(nullptr) << "a%x%" << 1, "a1"},
        {"literal value",
         cLIMessage() << "%a% %b%"
                      << "%b%\\"
                      << "\\\\x",
         "%b%\\ \\\\x"},
        {"escaped", cLIMessage() << "100\\% of %x%" << 5, "100% of 5"},
        {"escaped escape", cLIMessage() << "\\\\%x%" << 5, "\\5"},
        {"trailing escape", cLIMessage() << "a\\", "a"},
        {"escape in a name", cLIMessage() << "<%a\\%b%>" << 5, "<5>"},
        {"name without text", cLIMessage() << "<%%>" << 5, "<5>"},
        {"percent and space", cLIMessage() << "<% >" << 5, "<5 >"},
        {"ended by a space", cLIMessage() << "%a of %b%" << 1 << 2, "1 of 2"},
        {"open at the end", cLIMessage() << "a %b" << 1, "a 1"},
        {"same name", cLIMessage() << "%a% %a% %b%" << 1 << 2 << 3, "1 1 3"},
        {"high bytes",
         cLIMessage() << "\xE9 %\xE9% %a%"
                      << "\xE9" << cString("\xE9z"),
         "? ? ?z"},
        {"numbers", cLIMessage() << "%a% %b% %c% %d%" << -1 << ~0u << -1LL << ~0ULL,
         "-1 4294967295 -1 18446744073709551615"},
        {"double", cLIMessage() << "%a%" << -2.5, "-2.5"},
    };
    for (auto const& row : renderings) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(untranslated(row.message), row.text);
    }
}

TEST_F(cLIMessageTest, translatesByName)
{
    cLIMessage const message = cLIMessage() << "$MTR$%file% line %line%"
                                            << "f" << 7;
    EXPECT_EQ(translated(message, "Zeile %line% in %file%, %column%"), "Zeile 7 in f, ???");
    EXPECT_TRUE(message.key() == "%file% line %line%");

    cLIMessage const fixed = cLIMessage() << "$MNTR$%file% line %line%"
                                          << "f" << 7;
    EXPECT_EQ(translated(fixed, "Zeile %line%"), "f line 7");
    EXPECT_EQ(translated(cLIMessage(), "%a%"), "???");
}

TEST_F(cLIMessageTest, translatesIntoTheTranslation)
{
    cString text("<%a%>");
    (cLIMessage() << "%a%" << cString(L"\u20AC")).translate(text, text);
    EXPECT_TRUE(text == L"<\u20AC>");
    EXPECT_EQ(text._poolSize() % 4, 0u);
}

// In the search for placeholders only the low 8 bits count, in the removal of escapes all of them.
TEST_F(cLIMessageTest, looksAtLowBitsForSyntaxOnly)
{
    cLIMessage const message = cLIMessage() << "%a%"
                                            << "v\\";
    cString text;
    message.translate(L"\u0125a\u0125|", text);
    EXPECT_TRUE(text == L"v\\|");
    message.translate(L"\u015C%a%", text);
    EXPECT_TRUE(text == L"\u015C%a???");
    message.translate(L"\u015C\\%a%", text);
    EXPECT_TRUE(text == L"\u015Cv\\");
}

TEST_F(cLIMessageTest, formatsTheNumbersThatFollow)
{
    nstd::cNumberConversionFormat const hex(16);
    cLIMessage message;
    message << "%a% %b% %c%" << 255 << hex << 255;
    EXPECT_EQ(message.numberConversionFormat().base(), 16u);
    cLIMessage const copy = message;
    EXPECT_EQ(untranslated(message << 16), "255 ff 10");
    EXPECT_EQ(copy.numberConversionFormat().base(), 16u);
    EXPECT_EQ(untranslated(copy), "255 ff ???");
    EXPECT_EQ(cLIMessage().numberConversionFormat().base(), 10u);
    EXPECT_EQ(untranslated(cLIMessage() << hex << "%a%" << 255), "ff");
}

TEST_F(cLIMessageTest, copiesAreIndependentAndMovesLeaveNothing)
{
    cLIMessage message = cLIMessage() << "%a%-%b%" << 1;
    cLIMessage copy(message);
    copy << 2;
    message << 3;
    EXPECT_EQ(untranslated(copy), "1-2");
    EXPECT_EQ(untranslated(message), "1-3");

    message = std::move(copy);
    EXPECT_EQ(untranslated(message), "1-2");
    copy << "new %x%" << 5;
    EXPECT_EQ(untranslated(copy), "new 5");
    copy.swap(message);
    EXPECT_EQ(untranslated(copy), "1-2");
    cLIMessage const& itself = copy;
    copy = itself;
    EXPECT_EQ(untranslated(copy), "1-2");
}

TEST_F(cLIMessageTest, bindsItsOwnKey)
{
    cLIMessage message = cLIMessage() << "<%a%>";
    EXPECT_EQ(untranslated(message << message.key()), "<<%a%>>");
}

TEST_F(cLIMessageTest, takesThousandsOfValues)
{
    nstd::cAsciiString key;
    for (unsigned int i = 0; i < 2000; ++i)
        key += "%n%";
    cLIMessage message(key);
    for (unsigned int i = 0; i < 2001; ++i)
        message << 7;
    EXPECT_EQ(untranslated(message), std::string(2000, '7'));
}

TEST_F(cLIMessageTest, theFirstOfManyValuesOfANameCounts)
{
    cLIMessage message = cLIMessage() << "%c%%a%%b%%a%%d%%c%%e%%f%%g%%h%%a%%g%";
    for (int i = 0; i < 12; ++i)
        message << i;
    EXPECT_EQ(untranslated(message), "012140678918");
    EXPECT_EQ(translated(message, "%a%%h%%%%i%%c%%"), "19??????0???");
}

TEST_F(cLIMessageTest, repetitionsAddALimitedAmount)
{
    cString large;
    large.appendElements(1u << 19, 'x');
    auto const shown = [&](cLIMessage const& message, char const* translation) {
        auto const text = translated(message, translation);
        return std::to_string(std::count(text.begin(), text.end(), 'x') >> 19)
               + text.substr(text.find_last_of('x') + 1);
    };
    auto const message = cLIMessage() << "%a%%b%%c%%d%" << large << large << "s"
                                      << "";
    EXPECT_EQ(shown(message, "%a%%b%%a%%b%%a%%c%%c%%d%%d%"), "4???s???");
    EXPECT_EQ(shown(message, "%a%%a%%b%%c%%c%"), "3ss");
}

std::string item(char const* name, char const* value, unsigned int type)
{
    return ntest::ascii(name) + ntest::unicode(value) + ntest::number(type);
}

TEST_F(cLIMessageTest, isStoredAndLoaded)
{
    auto const message = cLIMessage() << "$MTR$%a% of %b%, %c%"
                                      << "\\" << 12;
    auto const bytes = ntest::message("%a% of %b%, %c%", 10, item("%a", "\\", 0) + item("%b", "12", 1));
    EXPECT_EQ(ntest::written([&](auto& target) { message >> target; }), bytes);
    EXPECT_EQ(ntest::written([&](auto& target) { cLIMessage() >> target; }), ntest::message("", 0, ""));

    auto loaded = cLIMessage() << nstd::cNumberConversionFormat(16) << "$MNTR$old %x%" << 5;
    ntest::read(bytes + ntest::number(7), [&](auto& source) {
        unsigned int behind = 0;
        loaded << source;
        source.load(behind);
        EXPECT_EQ(behind, 7u);
    });
    EXPECT_EQ(untranslated(loaded << 255), "\\ of 12, ff");
    EXPECT_EQ(translated(loaded, "%c%"), "ff") << "translatable again";
}

// A context ends with the data: behind a whole value the end of the values has come.
TEST_F(cLIMessageTest, aCutMessageKeepsWhatHasBeenLoaded)
{
    auto const value = item("%a", "1", 0);
    auto const bytes = ntest::message("new %a%", 7, value + value);
    auto const noValues = bytes.size() - 2 * value.size();
    auto const key = 2 * 20 + 8 + 7u;
    for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
        auto message = cLIMessage() << "old %a%" << 5;
        auto const load = [&](auto& source) { message << source; };
        bool const isWhole = cut == noValues || cut == noValues + value.size();
        if (isWhole)
            ntest::read(bytes.substr(0, cut), load);
        else
            EXPECT_ANY_THROW(ntest::read(bytes.substr(0, cut), load)) << cut;
        char const* const loaded = cut == noValues ? "new ???" : isWhole ? "new 1" : "new 5";
        EXPECT_EQ(untranslated(message), cut < key ? "old 5" : loaded) << cut;
    }
}

TEST_F(cLIMessageTest, aScanPositionBeyondTheKeyFindsNothing)
{
    for (unsigned int const position : {8u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        cLIMessage message;
        ntest::read(ntest::message("%a% %b%", position, item("%a", "1", 77)),
                    [&](auto& source) { message << source; });
        EXPECT_EQ(untranslated(message << 2), "1 ???");
        EXPECT_EQ(ntest::written([&](auto& target) { message >> target; }),
                  ntest::message("%a% %b%", position, item("%a", "1", 77)));
    }
}

} // namespace
