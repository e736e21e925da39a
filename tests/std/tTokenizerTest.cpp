#include "nel_core/std/tTokenizer.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/std/cAsciiStringTokenizer.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "tests/support/cBlocks.h"
#include "tests/support/raisedBy.h"

using nstd::cAsciiString;
using nstd::cAsciiStringTokenizer;

namespace {

struct cSpecial {
    std::string text;
    unsigned int id = 0; // 0 for a separator
    unsigned int priority = 0;
};

void prepare(cAsciiStringTokenizer& tokenizer, std::vector<cSpecial> const& specials,
             cAsciiString const& quote)
{
    for (auto const& special : specials) {
        cAsciiString const text(special.text.c_str());
        if (special.id == 0)
            tokenizer.context().addSeparator(text, special.priority);
        else
            tokenizer.context().addKey(text, special.id, special.priority);
    }
    tokenizer.context().setSingleQuote(quote);
}

// The next token in brackets and, when it is a key, with its id behind it; nothing when there is none.
std::string nextOf(cAsciiStringTokenizer& tokenizer)
{
    cAsciiStringTokenizer::tView token;
    unsigned int id = 99;
    if (!tokenizer.getNext(token, id))
        return "";
    return '[' + ntest::text(cAsciiString(token)) + ']' + (id != 0 ? std::to_string(id) : "");
}

std::string tokensOf(cAsciiStringTokenizer& tokenizer)
{
    std::string result;
    for (std::string token = nextOf(tokenizer); !token.empty(); token = nextOf(tokenizer))
        result += token;
    EXPECT_TRUE(tokenizer.empty());
    return result;
}

struct cRow {
    char const *name, *text;
    std::vector<cSpecial> specials;
    char const *quote, *tokens;
};

cRow const kRows[] = {
    {"separators around", ",,a,,", {{","}}, "", "[a]"},
    {"an empty special", "ab", {{""}, {"", 1}}, "", "[ab]"},
    {"a long escape", "a^^,b^,c", {{","}}, "^^", "[a^^,b^][c]"},
    {"the search goes on behind what is escaped", "\\aaa", {{"aa", 1}}, "\\", "[\\aaa]"},
    {"the same place, equal priority", "a==b", {{"=", 1}, {"==", 2}}, "", "[a][=]1[=]1[b]"},
    {"the same place, higher priority", "a==b", {{"=", 1}, {"==", 2, 1}}, "", "[a][==]2[b]"},
    {"both long: the first is taken", "xabc", {{"ab", 1}, {"abc", 2, 9}}, "", "[x][ab]1[c]"},
    {"starts earlier but ends too late", "xabc", {{"abc", 1}, {"xab", 2}}, "", "[x][abc]1"},
    {"starts earlier and ends in time", "xab", {{"b", 1}, {"xa", 2}}, "", "[xa]2[b]1"},
    {"shorter with priority", "a==b", {{"==", 2}, {"=", 1, 1}}, "", "[a][=]1[=]1[b]"},
    {"added first", "a==b", {{"==", 2}, {"=", 1}}, "", "[a][==]2[b]"},
    {"a doubled escape escapes too", "a\\\\,b", {{","}}, "\\", "[a\\\\,b]"},
    {"escaped at the front", "\\,a,b", {{","}}, "\\", "[\\,a][b]"},
    {"a separator before a key", "=a", {{"="}, {"=", 1}}, "", "[a]"},
};

TEST(tTokenizerTest, cutsTextsAtSpecials)
{
    for (auto const& row : kRows) {
        SCOPED_TRACE(row.name);
        cAsciiString const text(row.text);
        cAsciiStringTokenizer tokenizer(text);
        prepare(tokenizer, row.specials, row.quote);
        EXPECT_EQ(tokensOf(tokenizer), row.tokens);
    }
}

// A tokenizer that has read nothing yet has nothing to remember: there is a new one for each token.
std::string tokensWithoutMemory(cAsciiString const& text, std::vector<cSpecial> const& specials,
                                cAsciiString const& quote)
{
    std::string result;
    for (unsigned int pos = 0;;) {
        cAsciiStringTokenizer tokenizer(text);
        prepare(tokenizer, specials, quote);
        tokenizer.setPos(pos);
        std::string const token = nextOf(tokenizer);
        if (token.empty())
            return result;
        result += token;
        pos = tokenizer.pos();
    }
}

TEST(tTokenizerTest, rememberedPositionsDoNotChangeTheResult)
{
    std::mt19937 random(3);
    auto const word = [&](unsigned int least, unsigned int most, unsigned int letters) {
        std::string text(least + random() % (most - least + 1), 'a');
        for (char& c : text)
            c = static_cast<char>('a' + random() % letters);
        return text;
    };
    for (unsigned int round = 0; round < 5000; ++round) {
        unsigned int const letters = 2 + round % 3;
        cAsciiString const text(word(0, 30, letters).c_str()), quote(word(0, 2, letters).c_str());
        std::vector<cSpecial> specials(random() % 4);
        for (auto& special : specials)
            special = {word(1, 3, letters), static_cast<unsigned int>(random() % 3),
                       static_cast<unsigned int>(random() % 2)};
        auto const expected = tokensWithoutMemory(text, specials, quote);
        cAsciiStringTokenizer tokenizer(text);
        prepare(tokenizer, specials, quote);
        ASSERT_EQ(tokensOf(tokenizer), expected) << ntest::text(text) << ' ' << round;
        tokenizer.setPos(0); // backwards, and again
        ASSERT_EQ(tokensOf(tokenizer), expected) << ntest::text(text) << ' ' << round;
    }
}

TEST(tTokenizerTest, contextsAndTextsMayChangeOnTheWay)
{
    cAsciiString const first("a,b;c,d"), second("x;y,z");
    nstd::cAsciiStringTokenizerContext other;
    other.addSeparator(";");
    cAsciiStringTokenizer tokenizer(first);
    tokenizer.context().addSeparator(",");
    EXPECT_EQ(nextOf(tokenizer), "[a]");
    tokenizer.setContext(&other);
    EXPECT_EQ(nextOf(tokenizer), "[,b]");
    tokenizer.setContext(&tokenizer.context());
    tokenizer.set(second);
    EXPECT_EQ(tokensOf(tokenizer), "[x;y][z]");
    tokenizer.context().setSingleQuote("y");
    tokenizer.setPos(0);
    EXPECT_EQ(tokensOf(tokenizer), "[x;y,z]");
    tokenizer.setPos(6);
    EXPECT_EQ(tokensOf(tokenizer), "");
    EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfRangeException>([&] { tokenizer.leftOver(); }).has_value());
}

TEST(tTokenizerTest, countsTheSpecialsItMeets)
{
    unsigned int breaks = 0;
    cAsciiStringTokenizer tokenizer("a, b,\n\n");
    auto& comma = tokenizer.context().addSeparator(",");
    tokenizer.context().addSeparator(" ").leaveCount(&breaks);
    tokenizer.context().addSeparator("\n").leaveCount(&breaks);
    comma.setHints(10);
    tokenizer.process();
    EXPECT_EQ(comma.numHints(), 12u);
    EXPECT_EQ(breaks, 3u);
}

TEST(tTokenizerTest, removesQuotes)
{
    struct {
        char const *quote, *text, *result;
    } const rows[] = {
        {"\\", "a\\,b", "a,b"},
        {"\\", "\\\\\\", "\\"},
        {"^^", "^^a^^^^^", "a^^^"},
        {"", "a\\b", "a\\b"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.text);
        cAsciiStringTokenizer tokenizer("");
        tokenizer.context().setSingleQuote(row.quote);
        cAsciiString text(row.text);
        tokenizer.removeQuotes(text);
        EXPECT_EQ(ntest::text(text), row.result);
    }
}

// Without a memory of where the next special stands, every token would search for the rare ones to the end:
// more than a million requests.
TEST(tTokenizerTest, rareAndEscapedSpecialsDoNotCostAScanForEachToken)
{
    std::string text;
    for (unsigned int i = 0; i < 2000; ++i)
        text += "x\\//*";
    ntest::cBlocks const blocks(text, 16);
    cAsciiStringTokenizer tokenizer(blocks);
    tokenizer.context().setSingleQuote("\\");
    tokenizer.context().addSeparator("\r");
    tokenizer.context().addKey("//", 1);
    auto& star = tokenizer.context().addKey("/*", 2);
    tokenizer.process();
    EXPECT_EQ(star.numHints(), 2000u);
    EXPECT_LT(blocks.takeRequests().size(), 100000u);
}

} // namespace
