#include "nel_core/std/tArray.h"

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
    {"data", [](cBytes& a) { a.data(6, 0); }, "data", cSTDExceptions::ortIndex, 6, 4},
    {"fill", [](cBytes& a) { a.fill(5, 'x', 1); }, "fill", cSTDExceptions::ortSize, 1, 0},
    {"insert", [](cBytes& a) { a.insert(6, 'x'); }, "insert", cSTDExceptions::ortValue, 6, 5},
    {"erase across the end", [](cBytes& a) { a.erase(3, 3); }, "erase", cSTDExceptions::ortSize, 3, 2},
    {"erase too many", [](cBytes& a) { a.erase(6); }, "erase", cSTDExceptions::ortSize, 6, 5},
    {"truncate", [](cBytes& a) { a.truncate(6); }, "truncate", cSTDExceptions::ortValue, 6, 5},
    {"replace", [](cBytes& a) { a.replace('a', 'b', 5); }, "replace", cSTDExceptions::ortIndex, 5, 4},
    {"cut", [](cBytes& a) { a.cut(0, 6); }, "cut", cSTDExceptions::ortEndValue, 6, 5},
    {"copy", [](cBytes& a) { a.proxyCopyPartTo(nullptr, 6, 0); }, "copyPartTo", cSTDExceptions::ortIndex, 6,
     4},
    {"provide", [](cBytes& a) { a.proxyProvideData(4, 2); }, "provideData", cSTDExceptions::ortSize, 2, 1},
    {"patch", [](cBytes& a) { a.proxyPatchData(4, 2, "xy"); }, "proxyPatchData", cSTDExceptions::ortSize, 2,
     1},
    {"find from beyond", [](cBytes& a) { findIn(a, 6, 0); }, "find", ntest::kOutOfBounds},
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
        {[] { cBytes bytes(kNoText); }, "pFrom != 0"},
        {[] { cBytes("a").replace("a", kNoText); }, "(a != 0) && (b != 0)"},
        {[] { EXPECT_FALSE(cBytes("a") == kNoText); }, "pWith"},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.expression);
        ntest::expectAssertion(row.call, row.expression, "nel_core/std/tArray");
    }
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
    {"one more", 5, true, "0123456789abcdefghijklmnopqrstuv", [](cBytes& a) { a.append('x'); }, 33, 64},
    {"grow steps count modulo 32", 34, true, "", [](cBytes& a) { a.append('x'); }, 1, 4},
    {"erase fits", 5, true, "abcde", [](cBytes& a) { a.erase(1, 2); }, 3, 3},
    {"erase without fit", 5, false, "abcde", [](cBytes& a) { a.erase(2); }, 3, 32},
    {"set size exactly", 5, true, "abcde", [](cBytes& a) { a.setSize(40); }, 40, 40},
    {"clear", 5, false, "abcde", [](cBytes& a) { a.clear(); }, 0, 0},
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
    {"longer, in itself", "ab", "ab", "abab", 0, "abab"}, {"shorter", "aabaab", "aab", "-", 0, "--"},
    {"everything by nothing", "aaaa", "aa", "", 0, ""},   {"from the middle", "aaa", "a", "bb", 1, "abbbb"},
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
}

TEST(tArrayTest, findsElementsAndNoBytesAcrossThem)
{
    // The bytes of 0x100 also stand across the first two elements.
    cWords words;
    for (unsigned int word : {0x01000000u, 0x00010000u, 0x100u})
        words.append(word);
    bool found = false;
    EXPECT_EQ(words.find(0x100u, found), 2u);
    EXPECT_TRUE(found);
}

TEST(tArrayTest, comparesPartsAndEnds)
{
    cBytes const bytes("abcab");
    EXPECT_TRUE(bytes.beginsWith("", 0) && bytes.beginsWith("abcab", 5) && bytes.endsWith("abcab", 5));
    EXPECT_FALSE(bytes.beginsWith("abcabc", 6) || bytes.endsWith("", 0) || bytes.endsWith("xabcab", 6));
    EXPECT_TRUE(bytes.isEqual("ca", 2, 2) && bytes.isEqual("", 5, 0));
    EXPECT_FALSE(bytes.isEqual(kNoText, 0, 0) || bytes.isEqual("b", 5, 1) || bytes.isEqual("", 6, 0));
}

} // namespace
