#include "nel_core/std/tConstArrayRef.h"

#include <random>
#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/tArray.h"
#include "tests/support/cBlocks.h"
#include "tests/support/expectRefusal.h"

using ntest::cBlocks;
using cBytes = nstd::tArray<char>;
using cView = nstd::tConstArrayRef<char>;
using cTextView = nstd::tConstArrayRef<char, nstd::tArrayAsciiStringTraits<char>>;

namespace {

char const* const kNoText = nullptr;

TEST(tConstArrayRefTest, aViewOfAViewRefersToThePhysicalProxy)
{
    cBlocks const blocks("abcdefgh", 3);
    cView const outer(blocks, 2, 5);
    cTextView const inner(outer, 1);
    unsigned int offset = 0;
    EXPECT_EQ(&inner.constProxyPhysical(offset), &blocks);
    EXPECT_EQ(offset, 3u);
    EXPECT_TRUE(inner == "defg");
    cTextView const part = inner.cut(1, 3);
    EXPECT_EQ(part.offset(), 4u);
    EXPECT_TRUE(part == "ef");
}

void findIn(cView const& view, unsigned int start, unsigned int count)
{
    bool found = false;
    view.find('b', found, start, count);
}

struct cRefusedCall {
    char const* name;
    void (*call)(cView&);
    char const* operation;
    int type;
    long long value = 0, max = 0;
};

// The view is bcde of abcdef.
cRefusedCall const kRefusedCalls[] = {
    {"copy", [](cView& v) { v.proxyCopyPartTo(nullptr, 5, 0); }, "copyPartTo", cSTDExceptions::ortIndex, 5,
     3},
    {"provide", [](cView& v) { v.proxyProvideData(2, 3); }, "provideData", cSTDExceptions::ortSize, 3, 2},
    {"cut beyond", [](cView& v) { v.cut(1, 5); }, "cut", cSTDExceptions::ortEndValue, 5, 4},
    {"find and wrap", [](cView& v) { findIn(v, 1, 0xFFFFFFFFu); }, "find", ntest::kOutOfBounds},
    {"set too far", [](cView& v) { v.set(v, 5); }, "set", cSTDExceptions::ortSize, 6, 5},
    {"set too much", [](cView& v) { v.set(v, 1, 4); }, "set", cSTDExceptions::ortSize, 4, 3},
    {"set and wrap", [](cView& v) { v.set(v, 0xFFFFFFFFu, 0); }, "set", ntest::kOutOfBounds},
};

TEST(tConstArrayRefTest, aRefusedCallNamesTheLimitAndChangesNothing)
{
    for (auto const& row : kRefusedCalls) {
        SCOPED_TRACE(row.name);
        cBytes const bytes("abcdef");
        cView view(bytes, 1, 4);
        ntest::expectRefusal([&] { row.call(view); },
                             {"tConstArrayRef", row.operation, row.type, row.value, row.max});
        EXPECT_TRUE(view == "bcde");
        ntest::expectRefusal([&] { view.at(4); }, {"tArrayRef", "at", cSTDExceptions::ortIndex, 4, 3});
    }
}

TEST(tConstArrayRefTest, anUnsetViewHasNothing)
{
    cBytes const bytes("abc");
    cView view(bytes);
    view.clear();
    bool found = true;
    EXPECT_EQ(view.find('a', found, 7), 0u);
    EXPECT_FALSE(found || view.contains("a") || view.isEqual("a", 1) || view.isEqual(kNoText, 0));
    EXPECT_TRUE(view.isEqual("", 0) && view.beginsWith("", 0) && !view.endsWith("", 0));
    EXPECT_TRUE(view == cView() && view < cView(bytes) && cView(cBytes()) > view);
    void (*const calls[])() = {
        [] { cView()[0]; },
        [] { cView().cut(0, 0); },
        [] { cView().proxyProvideData(0, 0); },
        [] { cView const copy = cTextView(cView()); },
    };
    for (auto const call : calls)
        ntest::expectAssertion(call, "mpData != 0", "nel_core/std/tConstArrayRef");
}

TEST(tConstArrayRefTest, findsWhatAStringFindsForEveryBlockSize)
{
    std::mt19937 random(7);
    auto const word = [&](unsigned int most) {
        std::string text(random() % (most + 1), 'a');
        for (char& c : text)
            c = static_cast<char>('a' + random() % 2);
        return text;
    };
    for (unsigned int round = 0; round < 4000; ++round) {
        std::string const text = word(12), pattern = word(4);
        auto const length = static_cast<unsigned int>(pattern.size());
        cBlocks const blocks(text, round % 6);
        cView const view(blocks);
        auto const start = static_cast<unsigned int>(random() % (text.size() + 1));
        auto const count = static_cast<unsigned int>(random() % (text.size() - start + 1));
        std::size_t const expected =
            pattern.empty() ? std::string::npos
                            : text.substr(start, count == 0 ? std::string::npos : count).find(pattern);
        SCOPED_TRACE(testing::Message() << text << ' ' << pattern << ' ' << round);
        bool found = false, isInArray = false;
        unsigned int const index = view.find(pattern.data(), length, found, start, count);
        ASSERT_EQ(found, expected != std::string::npos);
        unsigned int const none = round % 6 == 0 ? start : 0; // searched as a whole, or by blocks
        ASSERT_EQ(index, found ? start + expected : none);
        cBytes const bytes(text.data(), view.length());
        ASSERT_EQ(bytes.find(pattern.data(), length, isInArray, start, count), found ? index : start);
        ASSERT_EQ(isInArray, found);
    }
}

TEST(tConstArrayRefTest, textsAreOrderedByUnsignedBytes)
{
    // Each text is less than all that follow; zero bytes count like any other.
    std::string const texts[] = {
        "", "a", std::string("a\0b", 3), std::string("a\0c", 3), "abcdefg", "abcdefgh", "abd", "\x80"};
    for (unsigned int blockSize = 0; blockSize < 5; ++blockSize)
        for (auto const& left : texts)
            for (auto const& right : texts) {
                int const order = &left < &right ? -1 : &left > &right;
                SCOPED_TRACE(left + " and " + right);
                cBlocks const blocks(left + right, blockSize); // both sides are parts of one proxy
                auto const half = static_cast<unsigned int>(left.size());
                cView const view(blocks, 0, half), other(blocks, half);
                EXPECT_EQ(view.relation(other), order);
                EXPECT_EQ(view.relation(right.data(), other.length()), order);
                EXPECT_EQ(view.relation(cBytes(right.data(), other.length())), order);
                EXPECT_EQ(view == cTextView(other), order == 0);
                EXPECT_EQ(cBytes(left.data(), half).relation(cBytes(right.data(), other.length())), order);
            }
    cBlocks const blocks("abcdef", 2);
    cView const view(blocks, 1);
    EXPECT_TRUE(view.isEqual("de", 2, 2) && view.beginsWith("bcd", 3) && view.endsWith("def", 3));
}

} // namespace
