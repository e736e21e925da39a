#include "nel_core/std/tArray.h"

#include <algorithm>
#include <new>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/cFailingMemory.h"
#include "tests/support/expectRefusal.h"

using nstd::tArray;
using cBytes = tArray<char>;
using cText = tArray<char, nstd::tArrayAsciiStringTraits<char>>;
using cWords = tArray<unsigned int>;

namespace {

char const* const kNoText = nullptr;

std::string textOf(cBytes const& bytes)
{
    return std::string(bytes.begin(), bytes.end());
}

void findIn(cBytes const& bytes, unsigned int start, unsigned int count)
{
    bool found = false;
    bytes.find('a', found, start, count);
}

struct cRefusedCall {
    char const* name;
    void (*call)(cBytes&);
    char const* operation;
    int type;
    long long value = 0, max = 0;
};

// Every call is one step outside of "abcde"; max is the largest value that would have been accepted.
cRefusedCall const kRefusedCalls[] = {
    {"at the length", [](cBytes& a) { a.at(5); }, "at", cSTDExceptions::ortIndex, 5, 4},
    {"data from beyond", [](cBytes& a) { a.data(6, 0); }, "data", cSTDExceptions::ortIndex, 6, 4},
    {"fill", [](cBytes& a) { a.fill(5, 'x', 1); }, "fill", cSTDExceptions::ortSize, 1, 0},
    {"insert", [](cBytes& a) { a.insert(6, 'x'); }, "insert", cSTDExceptions::ortValue, 6, 5},
    {"gap", [](cBytes& a) { a.proxyInsertDefaultObjects(6, 1); }, "insert", cSTDExceptions::ortValue, 6, 5},
    {"erase across the end", [](cBytes& a) { a.erase(3, 3); }, "erase", cSTDExceptions::ortSize, 3, 2},
    {"erase too many", [](cBytes& a) { a.erase(6); }, "erase", cSTDExceptions::ortSize, 6, 5},
    {"truncate", [](cBytes& a) { a.truncate(6); }, "truncate", cSTDExceptions::ortValue, 6, 5},
    {"replace", [](cBytes& a) { a.replace('a', 'b', 5); }, "replace", cSTDExceptions::ortIndex, 5, 4},
    {"cut beyond the end", [](cBytes& a) { a.cut(0, 6); }, "cut", cSTDExceptions::ortEndValue, 6, 5},
    {"cut at the end", [](cBytes& a) { a.cut(5, 5); }, "cut", cSTDExceptions::ortIndex, 5, 4},
    {"copy", [](cBytes& a) { a.proxyCopyPartTo(nullptr, 6, 0); }, "copyPartTo", cSTDExceptions::ortIndex, 6,
     4},
    {"provide", [](cBytes& a) { a.proxyProvideData(4, 2); }, "provideData", cSTDExceptions::ortSize, 2, 1},
    {"provide writeable", [](cBytes& a) { a.proxyProvideWriteableData(6, 1); }, "proxyProvideWriteableData",
     cSTDExceptions::ortIndex, 6, 4},
    {"patch", [](cBytes& a) { a.proxyPatchData(4, 2, "xy"); }, "proxyPatchData", cSTDExceptions::ortSize, 2,
     1},
    {"a range that wraps", [](cBytes& a) { a.erase(2, 0xFFFFFFFFu); }, "erase", ntest::kOutOfBounds},
    {"find from beyond", [](cBytes& a) { findIn(a, 6, 0); }, "find", ntest::kOutOfBounds},
    {"find and wrap", [](cBytes& a) { findIn(a, 1, 0xFFFFFFFFu); }, "find", ntest::kOutOfBounds},
    {"replace from beyond", [](cBytes& a) { a.replace("a", 1, "b", 1, 6); }, "find", ntest::kOutOfBounds},
    {"cut backwards", [](cBytes& a) { a.cut(3, 2); }, "cut", ntest::kOutOfBounds},
    {"append too many", [](cBytes& a) { a.append("x", 0xFFFFFFFFu); }, "append", ntest::kOutOfBounds},
    {"insert too many", [](cBytes& a) { a.insert(1, "x", 0xFFFFFFFBu); }, "insert", ntest::kOutOfBounds},
    {"add too many", [](cBytes& a) { a.appendElements(0xFFFFFFFBu); }, "appendElements", ntest::kOutOfBounds},
};

TEST(tArrayTest, aRefusedCallNamesTheLimitAndChangesNothing)
{
    for (auto const& row : kRefusedCalls) {
        SCOPED_TRACE(row.name);
        cBytes bytes("abcde", 5);
        ntest::expectRefusal([&] { row.call(bytes); },
                             {"tArray", row.operation, row.type, row.value, row.max});
        EXPECT_EQ(textOf(bytes), "abcde");
    }
    ntest::expectRefusal([] { cBytes().at(0); }, {"tArray", "at", cSTDExceptions::ortIndex, 0, 0});
}

TEST(tArrayTest, aPoolThatCannotBeHadLeavesTheArrayAsItWas)
{
    cBytes bytes("abcde", 5);
    bytes.setGrowStep(31);
    EXPECT_THROW(bytes.appendElements(0x80000000u), std::bad_alloc); // its sectors would have 2^32
    EXPECT_EQ(textOf(bytes), "abcde");
    EXPECT_EQ(bytes._poolSize(), 32u);
}

// Without fit-on-erase a pool that was fitted before grows to a whole sector, if it can.
TEST(tArrayTest, shrinkingDoesNotNeedMemory)
{
    void (*const calls[])(cText&) = {
        [](cText& a) { a.erase(0, 2); },
        [](cText& a) { a.truncate(3), a.setData("cde", 3); },
        [](cText& a) { a.replace("ab", ""); },
        [](cText& a) { a.setSize(3), a.setData("cde", 3); },
    };
    for (auto const call : calls) {
        SCOPED_TRACE(&call - calls);
        cText text("abcde");
        text.setFitOnErase(false);
        text.optimizeMemory();
        {
            ntest::cFailingMemory const memory(1, ntest::cFailingMemory::moShortage);
            call(text);
        }
        EXPECT_STREQ(text.data(), "cde");
        EXPECT_EQ(text._poolSize(), ntest::cFailingMemory::isAvailable() ? 5u : 32u);
        text.erase(1);
        EXPECT_EQ(text._poolSize(), 32u);
    }
}

TEST(tArrayTest, assertionsNameTheExpressionAndTheSource)
{
    struct {
        void (*call)();
        char const* expression;
    } const rows[] = {
        {[] { cBytes().data(); }, "mpPool != 0"},
        {[] { cBytes().proxyProvideData(0, 0); }, "mpPool != 0"},
        {[] { cBytes().proxyProvideWriteableData(0, 0); }, "mpPool != 0"},
        {[] { cBytes bytes(kNoText, 0); }, "pFrom != 0"},
        {[] { cBytes bytes(kNoText); }, "pFrom != 0"},
        {[] { cBytes("a").replace("a", kNoText); }, "(a != 0) && (b != 0)"},
        {[] { EXPECT_FALSE(cBytes("a") == kNoText); }, "pWith"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.expression);
        ntest::expectAssertion(row.call, row.expression, "nel_core/std/tArray");
    }
    EXPECT_EQ(cBytes().data(true), nullptr);
    cBytes().replace(kNoText, kNoText); // an empty array does not look
}

struct cSizes {
    char const* name;
    unsigned int growStep;
    bool fitOnErase;
    char const* text;
    void (*call)(cBytes&);
    unsigned int length, pool;
};

cSizes const kSizes[] = {
    {"a full sector", 5, true, "", [](cBytes& a) { a.appendElements(32, 'x'); }, 32, 32},
    {"one more", 5, true, "0123456789abcdefghijklmnopqrstuv", [](cBytes& a) { a.append('x'); }, 33, 64},
    {"grow step 0", 0, true, "ab", [](cBytes& a) { a.append('x'); }, 3, 3},
    {"grow steps count modulo 32", 34, true, "", [](cBytes& a) { a.append('x'); }, 1, 4},
    {"erase fits", 5, true, "abcde", [](cBytes& a) { a.erase(1, 2); }, 3, 3},
    {"erase everything", 5, true, "abcde", [](cBytes& a) { a.erase(5); }, 0, 0},
    {"erase without fit", 5, false, "abcde", [](cBytes& a) { a.erase(2); }, 3, 32},
    {"set size exactly", 5, true, "abcde", [](cBytes& a) { a.setSize(40); }, 40, 40},
    {"set size without fit", 5, false, "abcde", [](cBytes& a) { a.setSize(40); }, 40, 64},
    {"set data", 5, true, "", [](cBytes& a) { a.setData("abc", 3); }, 3, 3},
    {"clear", 5, false, "abcde", [](cBytes& a) { a.clear(); }, 0, 0},
    {"clear nothing", 5, false, "abcde", [](cBytes& a) { a.truncate(0), a.clear(); }, 0, 32},
    {"optimize", 5, false, "abcde", [](cBytes& a) { a.optimizeMemory(); }, 5, 5},
    {"grow after a fit", 5, true, "abcde", [](cBytes& a) { a.erase(2), a.append('x'); }, 4, 32},
};

TEST(tArrayTest, poolsGrowInSectorsAndShrinkWhenTold)
{
    for (auto const& row : kSizes) {
        SCOPED_TRACE(row.name);
        cBytes bytes;
        bytes.setGrowStep(row.growStep);
        bytes.setFitOnErase(row.fitOnErase);
        bytes.append(row.text);
        row.call(bytes);
        EXPECT_EQ(bytes.length(), row.length);
        EXPECT_EQ(bytes._poolSize(), row.pool);
        EXPECT_EQ(bytes.data(true) == nullptr, row.pool == 0);
    }
    EXPECT_EQ(cText()._poolSize(), 32u);
    cText text("abc");
    text.clear();
    EXPECT_EQ(text._poolSize(), 1u);
    EXPECT_STREQ(text.data(), "");
}

// Random operations, arguments from inside the array among them, against a vector.
template<typename Array, typename T>
void playAgainstModel(unsigned int seed)
{
    std::mt19937 random(seed);
    auto const upTo = [&](std::size_t limit) { return static_cast<unsigned int>(random() % (limit + 1)); };
    Array array;
    array.setGrowStep(seed % 6);
    array.setFitOnErase(seed % 2 == 0);
    std::vector<T> model;
    for (unsigned int step = 0; step < 3000; ++step) {
        T const fresh[] = {static_cast<T>(upTo(99)), 1, 2, 3};
        unsigned int const size = array.length();
        bool const own = size != 0 && upTo(1) == 0;
        unsigned int const from = own ? upTo(size - 1) : upTo(3);
        unsigned int const count = upTo(own ? size - from : 4 - from);
        T const* const source = (own ? array.data() : fresh) + from;
        std::vector<T> const values(source, source + count);
        T const& first = *source;
        T const value = first;
        unsigned int const at = upTo(size);
        auto const place = model.begin() + at;
        switch (upTo(size > 400 ? 2 : 8)) {
        case 0:
            array.erase(at, upTo(size - at) & 0xFFFFFFF8u);
            model.erase(place, place + (size - array.length()));
            break;
        case 1:
            array.truncate(at);
            model.resize(at);
            break;
        case 2:
            array.setData(source, count);
            model = values;
            break;
        case 3:
            array.append(source, count);
            model.insert(model.end(), values.begin(), values.end());
            break;
        case 4:
            array.insert(at, source, count);
            model.insert(place, values.begin(), values.end());
            break;
        case 5:
            array.append(first);
            model.push_back(value);
            break;
        case 6:
            array.insert(at, first);
            model.insert(place, value);
            break;
        case 7:
            array.appendElements(count, first);
            model.insert(model.end(), count, value);
            break;
        default: {
            Array copy(array);
            copy.swap(array);
            array = copy;
            break;
        }
        }
        ASSERT_EQ(std::vector<T>(array.begin(), array.end()), model) << "seed " << seed << ", step " << step;
        ASSERT_LE(array.length(), array._poolSize());
        if (std::is_same_v<Array, cText>) {
            ASSERT_EQ(array.data()[array.length()], T()) << "seed " << seed << ", step " << step;
        }
    }
}

TEST(tArrayTest, behavesLikeAVectorUnderRandomOperations)
{
    for (unsigned int seed = 1; seed <= 12; ++seed) {
        playAgainstModel<cBytes, char>(seed);
        playAgainstModel<cText, char>(seed);
        playAgainstModel<cWords, unsigned int>(seed);
    }
}

struct cReplacement {
    char const *name, *text, *pattern, *with;
    unsigned int start;
    char const* result;
};

cReplacement const kReplacements[] = {
    {"longer, in itself", "ab", "ab", "abab", 0, "abab"},
    {"longer, at both ends", "axbxa", "a", "123", 0, "123xbx123"},
    {"shorter", "aabaab", "aab", "-", 0, "--"},
    {"by nothing", "abcabc", "bc", "", 0, "aa"},
    {"everything by nothing", "aaaa", "aa", "", 0, ""},
    {"same length", "abcabc", "ca", "CA", 0, "abCAbc"},
    {"overlapping matches", "aaaaa", "aa", "b", 0, "bba"},
    {"from the middle", "aaa", "a", "bb", 1, "abbbb"},
    {"from the end", "aaa", "a", "b", 3, "aaa"},
    {"no match", "abc", "x", "yyyy", 0, "abc"},
    {"empty pattern", "abc", "", "y", 0, "abc"},
};

TEST(tArrayTest, replacesFromLeftToRightOnce)
{
    for (auto const& row : kReplacements) {
        SCOPED_TRACE(row.name);
        cBytes bytes(row.text);
        bytes.replace(row.pattern, row.with, row.start);
        EXPECT_EQ(textOf(bytes), row.result);
    }
    cBytes bytes("abab");
    bytes.replace(bytes.data(), 2, bytes.data() + 1, 3);
    EXPECT_EQ(textOf(bytes), "babbab");
    bytes.replace("b", 1, nullptr, 1);
    EXPECT_EQ(textOf(bytes), "aa");
    bytes.replace(bytes[0], bytes[1]);
    bytes.replace('a', 'b', 1);
    EXPECT_EQ(textOf(bytes), "ab");
}

struct cSearch {
    char const *name, *text, *pattern;
    unsigned int start, count;
    int index; // -1: not found
};

cSearch const kSearches[] = {
    {"one element", "abcabc", "c", 3, 0, 5},
    {"the range ends before the match", "abcabc", "c", 0, 2, -1},
    {"the match ends with the range", "abcabc", "bc", 0, 3, 1},
    {"the match leaves the range", "abcabc", "bca", 0, 3, -1},
    {"a count too large", "abc", "c", 1, 0xFFFFFFFEu, 2},
    {"the largest count", "abc", "c", 0, 0xFFFFFFFFu, 2},
    {"from the end", "abc", "c", 3, 0, -1},
    {"an empty pattern", "abc", "", 1, 0, -1},
    {"a pattern longer than all", "abc", "abcd", 0, 0, -1},
    {"in nothing", "", "a", 0, 0, -1},
};

TEST(tArrayTest, findsWhatLiesInsideTheRange)
{
    for (auto const& row : kSearches) {
        SCOPED_TRACE(row.name);
        cBytes const bytes(row.text);
        bool found = row.index < 0;
        unsigned int const index = bytes.find(row.pattern, found, row.start, row.count);
        EXPECT_EQ(found, row.index >= 0);
        EXPECT_EQ(index, row.index >= 0 ? static_cast<unsigned int>(row.index) : row.start);
    }
    // The bytes of 0x100 also stand across the first two elements.
    cWords words;
    for (unsigned int word : {0x01000000u, 0x00010000u, 0x100u, 0x100u, 7u})
        words.append(word);
    bool found = false;
    EXPECT_EQ(words.find(0x100u, found), 2u);
    unsigned int const pattern[] = {0x100u, 7u};
    EXPECT_EQ(words.find(pattern, 2, found), 3u);
    EXPECT_TRUE(found && words.contains(pattern, 2) && !words.contains(8u));
}

TEST(tArrayTest, comparesPartsAndEnds)
{
    cBytes const bytes("abcab");
    EXPECT_TRUE(bytes.beginsWith("ab", 2) && bytes.beginsWith("", 0) && bytes.beginsWith("abcab", 5));
    EXPECT_FALSE(bytes.beginsWith("b", 1) || bytes.beginsWith("abcabc", 6));
    EXPECT_TRUE(bytes.endsWith("ab", 2) && bytes.endsWith("abcab", 5));
    EXPECT_FALSE(bytes.endsWith("", 0) || bytes.endsWith("a", 1) || bytes.endsWith("xabcab", 6));
    EXPECT_TRUE(bytes.isEqual("ca", 2, 2) && bytes.isEqual("abc", 3) && bytes.isEqual("", 5, 0));
    EXPECT_FALSE(bytes.isEqual(kNoText, 0, 0) || bytes.isEqual("b", 5, 1) || bytes.isEqual("", 6, 0));
    EXPECT_TRUE(cBytes().beginsWith("", 0) && cBytes().isEqual("", 0));
}

TEST(tArrayTest, ordersByUnsignedBytesThenLength)
{
    // Each row is less than all that follow.
    cBytes rows[] = {cBytes(),     cBytes("x"), cBytes("a"),   cBytes("a\0", 2),
                     cBytes("ab"), cBytes("b"), cBytes("\x80")};
    rows[1].setFitOnErase(false);
    rows[1].truncate(0);
    for (auto const& left : rows)
        for (auto const& right : rows) {
            SCOPED_TRACE(testing::Message() << &left - rows << " and " << &right - rows);
            int const order = &left < &right ? -1 : &left > &right;
            EXPECT_EQ(left.relation(right), order);
            EXPECT_EQ(left < right, order < 0);
            EXPECT_EQ(left >= right, order >= 0);
            EXPECT_EQ(left != right, order != 0);
        }
    cBytes const abc("abc");
    EXPECT_TRUE(abc < "abc" && abc != "abc" && cBytes("abc", 4) == "abc" && abc > "abb"
                && abc.relation("abc", 3) == 0);
}

TEST(tArrayTest, cutsCopies)
{
    cBytes const bytes("abcde");
    EXPECT_EQ(textOf(bytes.cut(1, 4)), "bcd");
    EXPECT_TRUE(bytes.cut(2, 2).empty());
    cBytes out("old");
    bytes.cut(3, 5, out);
    EXPECT_EQ(textOf(out), "de");
    ntest::expectRefusal([&] { bytes.cut(0, 6, out); }, {"tArray", "cut", cSTDExceptions::ortEndValue, 6, 5});
    EXPECT_TRUE(out.empty());
}

TEST(tArrayTest, copiesElementsAndSettingsThroughTheProxy)
{
    struct cShouting : cBytes {
        using cBytes::cBytes;
        void proxyCopyPartTo(char* target, unsigned int start, unsigned int count) const override
        {
            cBytes::proxyCopyPartTo(target, start, count);
            std::transform(target, target + count, target,
                           [](char c) { return static_cast<char>(c - 'a' + 'A'); });
        }
    };
    cShouting shouting("abc", 3);
    shouting.setGrowStep(1);
    shouting.setFitOnErase(false);
    cBytes copy(shouting);
    EXPECT_EQ(textOf(copy), "ABC");
    EXPECT_EQ(copy._poolSize(), 4u);
    cBytes const taken(std::move(copy));
    EXPECT_EQ(textOf(taken), "ABC");
    EXPECT_TRUE(copy.empty() && copy.growStep() == 1 && !copy.fitOnErase());
}

} // namespace
