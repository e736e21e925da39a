#include "nel_core/ucs/cLIMessage.h"

#include <gtest/gtest.h>
#include <string>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/ucs/cLIItem.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cSystemFixture.h"

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

} // namespace
