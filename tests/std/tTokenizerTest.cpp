#include "nel_core/std/tTokenizer.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/std/cAsciiStringTokenizer.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cRuntimeException.h"
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

void add(cAsciiStringTokenizer& tokenizer, cSpecial const& special)
{
    cAsciiString const text(special.text.c_str());
    if (special.id == 0)
        tokenizer.context().addSeparator(text, special.priority);
    else
        tokenizer.context().addKey(text, special.id, special.priority);
}

// All tokens, each in brackets and with the id behind it when it is a key.
std::string tokensOf(cAsciiStringTokenizer& tokenizer)
{
    std::string result;
    cAsciiStringTokenizer::tView token;
    for (unsigned int id = 99; tokenizer.getNext(token, id);) {
        result += '[' + ntest::text(cAsciiString(token)) + ']';
        if (id != 0)
            result += std::to_string(id);
    }
    EXPECT_TRUE(tokenizer.empty());
    return result;
}

struct cRow {
    char const *name, *text;
    std::vector<cSpecial> specials;
    char const *quote, *tokens;
};

cRow const kRows[] = {
    {"two separators", "a, b", {{","}, {" "}}, "", "[a][b]"},
    {"a key", "x=1", {{"=", 7}}, "", "[x][=]7[1]"},
    {"separators around", ",,a,,", {{","}}, "", "[a]"},
    {"only separators", ",,,", {{","}}, "", ""},
    {"no specials", "a,b", {}, "", "[a,b]"},
    {"nothing", "", {{","}}, "", ""},
    {"an empty special", "ab", {{""}, {"", 1}}, "", "[ab]"},
    {"escaped", "a\\,b,c", {{","}}, "\\", "[a\\,b][c]"},
    {"escaped at the front", "\\,a", {{","}}, "\\", "[\\,a]"},
    {"a doubled escape escapes too", "a\\\\,b", {{","}}, "\\", "[a\\\\,b]"},
    {"a long escape", "a^^,b^,c", {{","}}, "^^", "[a^^,b^][c]"},
    {"the search goes on behind what is escaped", "\\aaa", {{"aa", 1}}, "\\", "[\\aaa]"},
    {"the same place, equal priority", "a==b", {{"=", 1}, {"==", 2}}, "", "[a][=]1[=]1[b]"},
    {"the same place, higher priority", "a==b", {{"=", 1}, {"==", 2, 1}}, "", "[a][==]2[b]"},
    {"the same place, added first", "a==b", {{"==", 2}, {"=", 1}}, "", "[a][==]2[b]"},
    {"the same place, shorter with priority", "a==b", {{"==", 2}, {"=", 1, 1}}, "", "[a][=]1[=]1[b]"},
    {"both long: the first is taken", "xabc", {{"ab", 1}, {"abc", 2, 9}}, "", "[x][ab]1[c]"},
    {"starts earlier but ends too late", "xabc", {{"abc", 1}, {"xab", 2}}, "", "[x][abc]1"},
    {"starts earlier and ends in time", "xab", {{"b", 1}, {"xa", 2}}, "", "[xa]2[b]1"},
    {"a separator before a key", "=a", {{"="}, {"=", 1}}, "", "[a]"},
};

TEST(tTokenizerTest, cutsTextsAtSpecials)
{
    for (auto const& row : kRows) {
        SCOPED_TRACE(row.name);
        cAsciiString const text(row.text);
        cAsciiStringTokenizer tokenizer(text);
        for (auto const& special : row.specials)
            add(tokenizer, special);
        tokenizer.context().setSingleQuote(row.quote);
        EXPECT_EQ(tokensOf(tokenizer), row.tokens);
    }
}

// The rules once more, without views, without memory, and with no regard to cost.
class cModel {
public:
    std::string text, quote;
    std::vector<cSpecial> specials;

    std::string tokens() const
    {
        std::string result;
        for (std::size_t pos = 0; pos < text.size();) {
            cSpecial const* const separator = at(pos);
            if (separator != nullptr) {
                pos += separator->text.size();
                continue;
            }
            cSpecial const* found = nullptr;
            std::size_t const start = nearest(pos, found);
            bool const isKey = found != nullptr && start == pos;
            std::size_t const end =
                isKey ? pos + found->text.size() : (found != nullptr ? start : text.size());
            result += '[' + text.substr(pos, end - pos) + ']' + (isKey ? std::to_string(found->id) : "");
            pos = end;
        }
        return result;
    }

private:
    bool escaped(std::size_t pos) const
    {
        return !quote.empty() && pos >= quote.size()
               && text.compare(pos - quote.size(), quote.size(), quote) == 0;
    }
    cSpecial const* at(std::size_t pos) const
    {
        for (auto const& special : specials)
            if (special.id == 0 && text.compare(pos, special.text.size(), special.text) == 0 && !escaped(pos))
                return &special;
        return nullptr;
    }
    std::size_t nearest(std::size_t from, cSpecial const*& found) const
    {
        std::size_t best = 0;
        for (auto const& special : specials) {
            std::size_t const length = special.text.size();
            std::size_t limit = text.size();
            if (found != nullptr)
                limit = std::min(limit, best + 1 + length - std::min(length, found->text.size()));
            std::string const searched = text.substr(0, limit);
            std::size_t hit = searched.find(special.text, from);
            while (hit != std::string::npos && escaped(hit))
                hit = searched.find(special.text, hit + length);
            if (hit == std::string::npos
                || (found != nullptr && hit >= best && special.priority <= found->priority))
                continue;
            found = &special;
            best = hit;
        }
        return best;
    }
};

TEST(tTokenizerTest, rememberedPositionsDoNotChangeTheResult)
{
    std::mt19937 random(3);
    auto const word = [&](unsigned int least, unsigned int most, unsigned int letters) {
        std::string text(least + random() % (most - least + 1), 'a');
        for (char& c : text)
            c = static_cast<char>('a' + random() % letters);
        return text;
    };
    for (unsigned int round = 0; round < 10000; ++round) {
        unsigned int const letters = 2 + round % 3;
        cModel model;
        model.text = word(0, 30, letters);
        model.quote = word(0, 2, letters);
        for (unsigned int i = static_cast<unsigned int>(random() % 4); i != 0; --i)
            model.specials.push_back({word(1, 3, letters), static_cast<unsigned int>(random() % 3),
                                      static_cast<unsigned int>(random() % 2)});
        cAsciiString const text(model.text.c_str());
        cAsciiStringTokenizer tokenizer(text);
        for (auto const& special : model.specials)
            add(tokenizer, special);
        tokenizer.context().setSingleQuote(model.quote.c_str());
        ASSERT_EQ(tokensOf(tokenizer), model.tokens()) << model.text << ' ' << model.quote << ' ' << round;
        tokenizer.setPos(0); // backwards, and again
        ASSERT_EQ(tokensOf(tokenizer), model.tokens()) << model.text << ' ' << model.quote << ' ' << round;
    }
}

TEST(tTokenizerTest, contextsAndTextsMayChangeOnTheWay)
{
    cAsciiString const first("a,b;c,d"), second("x;y,z");
    nstd::cAsciiStringTokenizerContext other;
    other.addSeparator(";");
    cAsciiStringTokenizer tokenizer(first);
    tokenizer.context().addSeparator(",");
    cAsciiString token;
    tokenizer >> token;
    EXPECT_TRUE(token == "a");
    tokenizer.setContext(&other);
    EXPECT_EQ(tokenizer.currentContext(), &other);
    tokenizer >> token;
    EXPECT_TRUE(token == ",b");
    tokenizer.setContext(&tokenizer.context());
    EXPECT_TRUE(cAsciiString(tokenizer.leftOver()) == ";c,d");
    tokenizer.set(second);
    EXPECT_EQ(tokensOf(tokenizer), "[x;y][z]");
    tokenizer.context().setSingleQuote("y");
    tokenizer.setPos(0);
    EXPECT_EQ(tokensOf(tokenizer), "[x;y,z]");
    tokenizer.context().clear();
    tokenizer.context().addKey(";", 5);
    tokenizer.setPos(0);
    EXPECT_EQ(tokensOf(tokenizer), "[x][;]5[y,z]");
    EXPECT_TRUE(tokenizer.leftOver().empty());
    tokenizer.setPos(6);
    EXPECT_EQ(tokensOf(tokenizer), "");
    EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfRangeException>([&] { tokenizer.leftOver(); }).has_value());
}

TEST(tTokenizerTest, findsTheNearestSpecial)
{
    typedef cAsciiStringTokenizer::tBase tTokenizer;
    nstd::cAsciiStringTokenizerContext context;
    auto* const key = &context.addKey("=", 3);
    auto* const separator = &context.addSeparator(",");
    cAsciiString const text("a=b,c");
    struct {
        unsigned int from;
        bool atPositionOnly;
        tTokenizer::ExpectType expect;
        unsigned int position;
        tTokenizer::cTokenSpec* special;
    } const rows[] = {
        {0, false, tTokenizer::exAll, 1, key},     {0, false, tTokenizer::exSeparators, 3, separator},
        {1, true, tTokenizer::exAll, 1, key},      {1, true, tTokenizer::exSeparators, 0, nullptr},
        {4, false, tTokenizer::exAll, 0, nullptr},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(&row - rows);
        auto* found = key;
        EXPECT_EQ(tTokenizer::findNearestSpecial(context, cAsciiStringTokenizer::tView(text), row.from,
                                                 row.atPositionOnly, row.expect, found),
                  row.position);
        EXPECT_EQ(found, row.special);
    }
}

TEST(tTokenizerTest, countsTheSpecialsItMeets)
{
    unsigned int breaks = 0;
    cAsciiStringTokenizer tokenizer("a, b,=c\n\n");
    auto& context = tokenizer.context();
    auto& comma = context.addSeparator(",");
    context.addSeparator(" ").leaveCount(&breaks);
    context.addSeparator("\n").leaveCount(&breaks);
    auto& key = context.addKey("=", 1);
    comma.setHints(10);
    tokenizer.process();
    EXPECT_EQ(tokenizer.pos(), 9u);
    EXPECT_EQ(comma.numHints(), 12u);
    EXPECT_EQ(key.numHints(), 1u);
    EXPECT_EQ(breaks, 3u);
}

TEST(tTokenizerTest, expectsTokensAndReadsStrings)
{
    cAsciiStringTokenizer tokenizer(cAsciiString("x=,"));
    tokenizer.context().addKey("=", 7);
    tokenizer.context().addSeparator(",");
    cAsciiString token;
    EXPECT_EQ(tokenizer.expectToken(token), 0u);
    EXPECT_TRUE(token == "x");
    EXPECT_EQ(tokenizer.expectToken(token), 7u);
    unsigned int id = 9;
    EXPECT_FALSE(tokenizer.getNextToken(token, id));
    EXPECT_TRUE(token == "=" && id == 0);
    auto const error = ntest::raisedBy<nstd::cRuntimeException>([&] { tokenizer.expectToken(token); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "Unexpected end of input!");
    cAsciiStringTokenizer::tView view(token);
    EXPECT_FALSE(tokenizer.getNext(view));
    EXPECT_TRUE(view == cAsciiStringTokenizer::tView());
}

TEST(tTokenizerTest, removesQuotes)
{
    struct {
        char const *quote, *text, *result;
    } const rows[] = {
        {"\\", "a\\,b", "a,b"}, {"\\", "\\\\", "\\"}, {"\\", "\\\\\\", "\\"},     {"\\", "\\\\\\\\", "\\\\"},
        {"\\", "a\\", "a"},     {"\\", "", ""},       {"^^", "^^a^^^^^", "a^^^"}, {"", "a\\b", "a\\b"},
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
