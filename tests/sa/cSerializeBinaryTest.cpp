#include "nel_core/sa/cSerializeBinary.h"

#include <algorithm>
#include <cstddef>
#include <gtest/gtest.h>
#include <string>

#include "nel_core/sa/cContext.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/cTypeReference.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/raisedBy.h"

namespace {

using nsa::cContext;
using nsa::cSerializeBinary;
using tBytes = cSerializeBinary::tBytes;

std::string hex(cSerializeBinary& serializer)
{
    std::string text;
    auto const data = serializer.data();
    for (unsigned int i = 0; i < data.length(); ++i) {
        char digits[3];
        std::snprintf(digits, sizeof(digits), "%02X", static_cast<unsigned char>(data[i]));
        text += digits;
    }
    return text;
}

using nsa::kIsStorable;
static_assert(kIsStorable<char const*> && kIsStorable<char[4]> && !kIsStorable<void*>);
static_assert(!kIsStorable<int*> && !kIsStorable<std::nullptr_t> && !kIsStorable<wchar_t const*>);

std::string const kEmptyContext = "0C00000004000000100000000800000000000000";

TEST(cSerializeBinaryTest, rewritingOverwritesAndDataCutsTheRest)
{
    tBytes target;
    cSerializeBinary serializer(target);
    nstd::cAsciiString("abcdef") >> serializer;
    serializer.rewind();
    5U >> serializer;
    EXPECT_EQ(target.length(), 14U);
    EXPECT_EQ(hex(serializer), "0400000005000000");
    EXPECT_EQ(target.length(), 8U);

    tBytes taken("xyz", 3);
    serializer.swapData(taken);
    EXPECT_TRUE(taken.empty()); // the own array, which was not the target
    true >> serializer;
    EXPECT_EQ(hex(serializer), "0800000001000000");
    EXPECT_EQ(&serializer.ownData()[0], serializer.data().proxyProvideData(0, 8));
    EXPECT_EQ(serializer.ownData().growStep(), 18U); // not that of the array given
    serializer.clear();
    EXPECT_EQ(serializer.currentPos(), 0U);
    EXPECT_TRUE(serializer.ownData().empty());
}

TEST(cSerializeBinaryTest, thePartOfAnArrayThatIsViewedGrowsAndTheRestStays)
{
    tBytes target("<12345>", 7);
    cSerializeBinary serializer(cSerializeBinary::tBytesRef(target, 1, 5));
    "ab" >> serializer;
    EXPECT_TRUE(target.isEqual("<\n\0\0\0\2\0\0\0ab>", 12));
    serializer.rewind();
    serializer.store(static_cast<signed char>('c'));
    EXPECT_EQ(hex(serializer), "0300000063");
    EXPECT_TRUE(target.isEqual("<\3\0\0\0c>", 7));
}

// The bytes move, or are written over, while they are stored.
TEST(cSerializeBinaryTest, theDataItselfCanBeStored)
{
    std::string const text(1000, 'x');
    tBytes target;
    cSerializeBinary serializer(target);
    text.c_str() >> serializer;
    std::string const stored(target.begin(), target.end());
    serializer.storeBlock(target.data(), target.length());
    ASSERT_EQ(target.length(), 2024U);
    EXPECT_TRUE(target.isEqual(stored.data(), 1016 - 8, 0) && target.isEqual(stored.data(), 1016, 1008));
    serializer.rewind();
    serializer.storeBlock(target.data(), 1008);
    EXPECT_TRUE(target.isEqual(stored.data(), 8, 1008));

    nsa::cDeserializeBinary reader(serializer.data());
    reader.reserialize(serializer);
    EXPECT_EQ(target.length(), 2032U);
    EXPECT_TRUE(target.isEqual(stored.data(), 1024, 1008));
}

TEST(cSerializeBinaryTest, aTargetThatTakesNoMoreRaises)
{
    struct cFull : tBytes {
        using tBytes::tBytes;
        unsigned int proxyInsertDefaultObjects(unsigned int, unsigned int) override { return 0; }
    } full(10);
    cSerializeBinary serializer(full);
    1U >> serializer;
    auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>([&] { 2U >> serializer; });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->operation(), "storeRaw");
    EXPECT_EQ(hex(serializer), "0400000001000000");
}

TEST(cSerializeBinaryTest, contextsNestAndTheUnreleasedOneVanishes)
{
    cSerializeBinary serializer;
    {
        cContext outer(serializer.newContext("X"));
        {
            cContext abandoned(serializer.newContext(nullptr));
            7U >> serializer;
        }
        static_cast<short>(-1) >> serializer;
        serializer.rewind();
        EXPECT_EQ(serializer.currentPos(), 29U);
        static_cast<short>(-1) >> serializer;
        EXPECT_TRUE(ntest::raisedBy<nstd::cBugException>([&] { serializer.data(); }).has_value());
        EXPECT_TRUE(ntest::raisedBy<nstd::cBugException>([&] { serializer.clear(); }).has_value());
        outer.release();
        outer.release();
        true >> serializer;
    }
    EXPECT_EQ(hex(serializer), "0C000000040000001F00000008000000010000000A000000010000005812000000FFFF"
                               "0800000001000000");
}

TEST(cSerializeBinaryTest, contextsThatEndOutOfOrderLeaveAWellFormedStream)
{
    cSerializeBinary serializer;
    {
        cContext outer(serializer.newContext(nullptr));
        cContext inner(serializer.newContext(nullptr));
        outer.release(); // takes the inner one along
        inner.release();
    }
    EXPECT_EQ(hex(serializer), "0C00000004000000240000000800000000000000" + kEmptyContext);

    serializer.clear();
    auto* const outer = new cContext(serializer.newContext(nullptr));
    cContext inner(serializer.newContext(nullptr));
    delete outer;
    inner.release();
    serializer.releaseCurrentContext();
    EXPECT_EQ(hex(serializer), kEmptyContext + kEmptyContext);

    auto* const dying = new cSerializeBinary;
    cContext survivor(dying->newContext("late"));
    cContext second(dying->newContext("later"));
    delete dying;
    survivor.release();
}

TEST(cSerializeBinaryTest, stringsHaveTwoFormsAndNoneInOtherModes)
{
    unsigned int const codePoints[] = {0xE4, 0x20AC, 0x1F600};
    nucs::cString text;
    text.append(codePoints, 3);
    cSerializeBinary serializer;
    text >> serializer;
    EXPECT_EQ(hex(serializer), "0B00000003000000E4000000AC20000000F60100");
    serializer.clear();
    serializer.setStringStoreMode(cSerializeBinary::ssmUTF8);
    text >> serializer;
    EXPECT_EQ(hex(serializer), "1000000009000000C3A4E282ACF09F9880");
    serializer.clear();
    serializer.setStringStoreMode(static_cast<cSerializeBinary::StringStoreMode>(2));
    text >> serializer;
    EXPECT_EQ(serializer.currentPos(), 0U);
}

TEST(cSerializeBinaryTest, patchStaysBehindTheWritePositionOrTakesItAlong)
{
    cSerializeBinary serializer;
    1U >> serializer;
    2U >> serializer;
    unsigned int number = 9;
    nsa::cTypeReference<unsigned int> reference(number, false, true);
    serializer.patch(0, reference);
    EXPECT_EQ(serializer.currentPos(), 16U);
    serializer.patch(12, reference);
    EXPECT_EQ(serializer.currentPos(), 20U);
    auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>([&] { serializer.patch(21, reference); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->operation(), "patch");
    EXPECT_EQ(hex(serializer), "0400000009000000040000000400000009000000");

    int* pointer = nullptr;
    nsa::cTypeReference<int*> unserializable(pointer, false, true);
    EXPECT_TRUE(
        ntest::raisedBy<nstd::cBugException>([&] { serializer.patch(0, unserializable); }).has_value());
    EXPECT_EQ(serializer.currentPos(), 20U);

    serializer.rewind(); // the data is there until it is cut
    serializer.patch(8, reference);
    EXPECT_EQ(hex(serializer), "04000000090000000400000009000000");
}

TEST(cSerializeBinaryTest, whatWouldPassFourGigabytesIsRefusedWhole)
{
    cSerializeBinary serializer;
    true >> serializer;
    char const byte = 0;
    for (unsigned int const size : {0xFFFFFFFFU, 0xFFFFFFF0U}) {
        auto const error =
            ntest::raisedBy<nstd::cOutOfBoundsException>([&] { serializer.storeBlock(&byte, size); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->container(), "cSerializeBinary");
        EXPECT_EQ(error->operation(), "storeRaw");
        EXPECT_EQ(serializer.currentPos(), 8U);
    }
}

TEST(cSerializeBinaryTest, missingMemoryLeavesPositionAndBytesAsTheyWere)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    nstd::cAsciiString text;
    text.appendElements(1000, 'x');
    nsa::cTypeReference<nstd::cAsciiString> reference(text, false, true);
    tBytes target;
    target.setGrowStep(0);
    cSerializeBinary serializer(target);
    8U >> serializer;
    auto const refusals = ntest::failEachRequest(
        [&] {
            serializer.rewind();
            8U >> serializer;
            serializer.patch(4, reference);
            serializer.rewind();
            8U >> serializer;
            serializer.newLabel("name");
            text >> serializer;
            cContext context(serializer.newContext("context"));
            context.release();
        },
        [&] {
            unsigned int const whole[] = {8, 24, 1012, 1032, 1067};
            EXPECT_NE(std::find(std::begin(whole), std::end(whole), serializer.currentPos()),
                      std::end(whole));
            EXPECT_TRUE(target.isEqual("\4\0\0\0\10\0\0\0", 8) || serializer.currentPos() == 1012);
        });
    EXPECT_GT(refusals, 2U);
}

TEST(cSerializeBinaryTest, aWarmSerializerTakesNoMemory)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    nstd::cAsciiString const name("0123456789abcdef");
    nucs::cString const text("0123456789abcdef0123456789abcdef");
    nstd::tList<unsigned int> numbers;
    for (unsigned int i = 0; i < 100; ++i)
        numbers.append(i);
    cSerializeBinary serializer;
    auto const store = [&] {
        7U >> serializer, -1LL >> serializer, true >> serializer, 0.25 >> serializer;
        name >> serializer, text >> serializer, numbers >> serializer;
        cContext context(serializer.newContext("nested"));
        1 >> serializer, 2 >> serializer;
        context.release();
    };
    store();
    ntest::cFailingMemory const memory(1); // would make a request raise
    serializer.rewind();
    store();
    serializer.clear();
    store();
    serializer.data();
    EXPECT_FALSE(memory.hasFailed());
}

} // namespace
