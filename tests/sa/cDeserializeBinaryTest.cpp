#include "nel_core/sa/cDeserializeBinary.h"

#include <cstring>
#include <deque>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>

#include "nel_core/sa/cLabeledTypeMissmatchException.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cBlocks.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/raisedBy.h"

namespace {

using namespace std::string_literals;
using nsa::cContext;
using nsa::cDeserializeBinary;
using nsa::cSerializeBinary;
using tBytes = cDeserializeBinary::tBytes;

constexpr char kEndOfContext[] = "Unable to deserialize - end of context!";

tBytes bytesOf(std::string const& text)
{
    return tBytes(text.data(), static_cast<unsigned int>(text.size()));
}

std::string u32(unsigned int number)
{
    std::string text(4, '\0');
    std::memcpy(text.data(), &number, 4);
    return text;
}

std::string label(std::string const& name)
{
    return u32(13) + u32(10) + u32(static_cast<unsigned int>(name.size())) + name;
}

std::string context(unsigned int size, std::string const& body)
{
    return u32(12) + u32(4) + u32(size) + u32(8) + u32(0) + body;
}

// Every type of item, with labels, and a number behind it all, so that no cut goes unnoticed.
struct cAll {
    unsigned char u8 = 200;
    signed char i8 = -5;
    unsigned short u16 = 60000;
    short i16 = -2;
    unsigned int u32 = 7;
    int i32 = -7;
    unsigned long long u64 = ~0ULL;
    long long i64 = std::numeric_limits<long long>::min();
    bool flag = true;
    double number = 0.1;
    nstd::cAsciiString ascii{"ascii"};
    nucs::cString text{"text"};
    nucs::cString utf8{"utf8 \xFC"};
    tBytes block = bytesOf("block");
    nstd::tVector<int> vector;
    nstd::tList<nstd::cAsciiString> list;
    unsigned int last = 1;

    cAll()
    {
        vector.append(1);
        vector.append(-1);
        list.append("one");
        list.append("");
    }

    void store(cSerializeBinary& s) const
    {
        u8 >> s, i8 >> s, u16 >> s, i16 >> s, u32 >> s, i32 >> s, u64 >> s, i64 >> s;
        s.newLabel("label");
        flag >> s, number >> s, ascii >> s, text >> s;
        s.setStringStoreMode(cSerializeBinary::ssmUTF8);
        utf8 >> s;
        cContext outer(s.newContext("outer"));
        block >> s, vector >> s;
        s.newLabel("list");
        list >> s;
        outer.release();
        last >> s;
    }
    void load(cDeserializeBinary& d)
    {
        u8 << d, i8 << d, u16 << d, i16 << d, u32 << d, i32 << d, u64 << d, i64 << d;
        flag << d, number << d, ascii << d, text << d, utf8 << d;
        {
            cContext outer(d.getContext("outer"));
            block << d, vector << d, list << d;
            outer.release();
        }
        last << d;
    }
    static cAll blank()
    {
        cAll all;
        all.u8 = 0, all.i8 = 0, all.u16 = 0, all.i16 = 0, all.u32 = 0, all.i32 = 0, all.u64 = 0, all.i64 = 0;
        all.flag = false, all.number = 0, all.ascii = "", all.text = "", all.utf8 = "", all.block.clear();
        all.vector.clear(), all.list.clear(), all.last = 0;
        return all;
    }
    bool operator==(cAll const& o) const
    {
        return u8 == o.u8 && i8 == o.i8 && u16 == o.u16 && i16 == o.i16 && u32 == o.u32 && i32 == o.i32
               && u64 == o.u64 && i64 == o.i64 && flag == o.flag && number == o.number && ascii == o.ascii
               && text == o.text && utf8 == o.utf8 && block == o.block && vector == o.vector
               && list.size() == o.list.size() && *list.begin() == *o.list.begin() && last == o.last;
    }
};

std::string allStored()
{
    cSerializeBinary serializer;
    cAll().store(serializer);
    tBytes const& data = serializer.ownData();
    return std::string(data.begin(), data.end());
}

// Walks any bytes by the types found there, down to the end or to the damage. Gives the number of items.
unsigned int walk(cDeserializeBinary& d)
{
    nstd::tList<cContext*> open;
    unsigned int count = 0;
    auto const leave = [&](bool release) {
        if (release)
            (*open.last())->release();
        delete *open.last();
        open.erase(open.last());
    };
    try {
        for (;; ++count) {
            while (d.eocMayBeLabels() && !open.empty())
                leave(true);
            if (d.eocMayBeLabels())
                break;
            if (d.isContext()) {
                static_cast<void>(d.getNextContextTypeName());
                open.append(new cContext(d.getContext(nullptr)));
            } else {
                d.skipItem();
            }
        }
    } catch (nstd::cAbstractException const&) {
    }
    while (!open.empty())
        leave(false);
    return count;
}

TEST(cDeserializeBinaryTest, everyItemComesBackFromBytesInOnePieceAndInBlocks)
{
    std::string const stored = allStored();
    tBytes const bytes = bytesOf(stored);
    cDeserializeBinary whole(bytes);
    cAll loaded = cAll::blank();
    loaded.load(whole);
    EXPECT_TRUE(loaded == cAll());
    EXPECT_TRUE(whole.eoc());

    ntest::cBlocks const blocks(stored, 3);
    cDeserializeBinary pieces(blocks);
    loaded = cAll::blank();
    loaded.load(pieces);
    EXPECT_TRUE(loaded == cAll());
}

TEST(cDeserializeBinaryTest, missingMemoryLosesNothing)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    tBytes const bytes = bytesOf(allStored());
    cDeserializeBinary d(bytes);
    cSerializeBinary copy;
    auto const refusals = ntest::failEachRequest(
        [&] {
            cAll loaded = cAll::blank();
            loaded.load(d);
            d.rewind();
            d.reserialize(copy);
        },
        [&] {
            d.rewind(); // to the start: no context is open
            EXPECT_EQ(d.currentPos(), 0U);
            copy.rewind();
            EXPECT_NO_THROW(copy.data());
        });
    EXPECT_GT(refusals, 20U);
}

// On i386 a double in a register would lose what makes the NaN signal.
TEST(cDeserializeBinaryTest, everyDoubleKeepsItsBits)
{
    std::string const stored = u32(9) + u32(1) + u32(0x7FF00000);
    tBytes const bytes = bytesOf(stored);
    cDeserializeBinary d(bytes);
    double number = 0;
    number << d;
    EXPECT_EQ(std::memcmp(&number, stored.data() + 4, 8), 0);
    cSerializeBinary copy;
    d.rewind();
    d.reserialize(copy);
    EXPECT_TRUE(copy.ownData() == bytes);
}

TEST(cDeserializeBinaryTest, aBlockReplacesTheDataThatIsReadButNotTheSettings)
{
    std::string const stored = u32(1) + u32(3) + "abc"s;
    tBytes bytes = bytesOf(stored);
    cDeserializeBinary d(bytes);
    d.loadBlock(bytes);
    EXPECT_TRUE(bytes == bytesOf("abc"));

    ntest::cBlocks const blocks(stored, 3);
    cDeserializeBinary pieces(blocks);
    bytes.setGrowStep(9);
    pieces.loadBlock(bytes);
    EXPECT_EQ(bytes.growStep(), 9U);
}

TEST(cDeserializeBinaryTest, aStreamCutAnywhereRaises)
{
    std::string const stored = allStored();
    for (std::size_t size = 0; size < stored.size(); ++size) {
        SCOPED_TRACE(size);
        cDeserializeBinary d(nstd::tAutoPtr<tBytes>(new tBytes(bytesOf(stored.substr(0, size)))));
        cAll loaded = cAll::blank();
        EXPECT_THROW(loaded.load(d), nstd::cAbstractException);
        EXPECT_EQ(loaded.last, 0U);
        d.rewind();
        walk(d);
        d.rewind();
        cSerializeBinary copy;
        try {
            d.reserialize(copy);
        } catch (nstd::cAbstractException const&) {
        }
        EXPECT_EQ(d.currentPos(), 0U);
        EXPECT_NO_THROW(copy.data());
    }
}

TEST(cDeserializeBinaryTest, noNumberInAStreamMisleadsTheReader)
{
    std::string const stored = allStored();
    for (std::size_t at = 0; at + 4 <= stored.size(); ++at) {
        for (unsigned int const value : {0U, 1U, 7U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFCU, 0xFFFFFFFFU}) {
            std::string damaged = stored;
            damaged.replace(at, 4, u32(value));
            tBytes const bytes = bytesOf(damaged);
            cDeserializeBinary d(bytes);
            cAll loaded = cAll::blank();
            try {
                loaded.load(d);
            } catch (nstd::cAbstractException const&) {
            }
            d.rewind();
            EXPECT_LE(walk(d), damaged.size());
            cSerializeBinary copy;
            try {
                d.rewind();
                d.reserialize(copy);
            } catch (nstd::cAbstractException const&) {
            }
            EXPECT_LE(copy.data().length(), 4 * damaged.size());
        }
    }
}

struct cRefusal {
    char const* name;
    std::string bytes;
    void (*load)(cDeserializeBinary&);
    std::string message;
};

cRefusal const kRefusals[] = {
    {"nothing left", "",
     [](cDeserializeBinary& d) {
         int n;
         n << d;
     },
     kEndOfContext},
    {"another type", u32(4) + u32(1),
     [](cDeserializeBinary& d) {
         int n;
         n << d;
     },
     "Type mismatch: Expecting type \"piInt32\" but got object of type \"piUInt32\"!"},
    {"another type behind a label", label("A") + u32(4) + u32(1),
     [](cDeserializeBinary& d) {
         int n;
         n << d;
     },
     "Type mismatch: Expecting type \"piInt32\" but got object of type \"piUInt32\" - last label was \"A\"!"},
    {"another type behind a label without a name", label("") + u32(99),
     [](cDeserializeBinary& d) {
         nucs::cString s;
         s << d;
     },
     "Type mismatch: Expecting type \"cString\" but got object of type \"unknown type\"!"},
    {"no block", u32(12),
     [](cDeserializeBinary& d) {
         tBytes b;
         d.loadBlock(b);
     },
     "Type mismatch: Expecting type \"rawBytes\" but got object of type \"context\"!"},
    {"no context", u32(4), [](cDeserializeBinary& d) { d.getContext(nullptr); },
     "Type mismatch: Expecting type \"context\" but got object of type \"piUInt32\"!"},
    {"a context of another name, behind a label", label("A") + context(16, ""),
     [](cDeserializeBinary& d) { d.getContext("X"); },
     "Type mismatch: Expecting type \"context X\" but got object of type \"context \"!"},
    {"a context whose name goes on behind a zero",
     "\f\0\0\0\4\0\0\0\x1F\0\0\0\b\0\0\0\1\0\0\0"s + u32(10) + u32(3) + "A\0B"s,
     [](cDeserializeBinary& d) { d.getContext("A"); },
     "Type mismatch: Expecting type \"context A\" but got object of type \"context A\0B\"!"s},
    {"no label", u32(4) + u32(1), [](cDeserializeBinary& d) { d.getNextLabelName(); },
     "Type mismatch: Expecting type \"label\" but got object of type \"piUInt32\"!"},
    {"a label that is named by labels", u32(13) + u32(13) + u32(13), [](cDeserializeBinary& d) { d.eoc(); },
     "Type mismatch: Expecting type \"cAsciiString\" but got object of type \"label\"!"},
    {"an unknown item to skip", u32(20), [](cDeserializeBinary& d) { d.skipItem(); },
     "Invalid type id (20) while deserializing!"},
    {"an unknown item to copy", u32(20),
     [](cDeserializeBinary& d) {
         cSerializeBinary s;
         d.reserialize(s);
     },
     "Invalid type id (20) while deserializing!"},
    {"the id that ends the ids, in a search", u32(19), [](cDeserializeBinary& d) { d.findLabel("A"); },
     "Invalid type id (19) while deserializing!"},
    {"no such label, but one inside a context", context(29, label("A")) + label("a"),
     [](cDeserializeBinary& d) { d.findLabel("A"); },
     "Unable to deserialize - label (\"A\") not found in current context!"},
    {"elements without a form", context(20, u32(0)),
     [](cDeserializeBinary& d) {
         nstd::tList<piVoid> l;
         l << d;
     },
     kEndOfContext},
    {"another context for a vector", context(16, ""),
     [](cDeserializeBinary& d) {
         nstd::tVector<int> v;
         v << d;
     },
     "Type mismatch: Expecting type \"context unknown\" but got object of type \"context \"!"},
};

TEST(cDeserializeBinaryTest, aRefusedReadSaysWhyAndStaysInPlace)
{
    for (auto const& row : kRefusals) {
        SCOPED_TRACE(row.name);
        tBytes const bytes = bytesOf(row.bytes);
        cDeserializeBinary d(bytes);
        try {
            row.load(d);
            ADD_FAILURE() << "nothing was raised";
        } catch (nstd::cAbstractException const& error) {
            EXPECT_EQ(ntest::messageOf(error), row.message);
        }
        EXPECT_EQ(d.currentPos(), 0U);
    }
}

TEST(cDeserializeBinaryTest, lengthsAreComparedWithWhatIsLeft)
{
    struct cRow {
        char const* name;
        std::string bytes;
        bool wraps;
    };
    cRow const rows[] = {
        {"a string longer than the data", u32(10) + u32(1), false},
        {"a string that wraps", u32(10) + u32(0xFFFFFFF8), true},
        {"code points that wrap", u32(11) + u32(0x40000000), true},
        {"code points beyond the data", u32(11) + u32(0x3FFFFFF0), false},
        {"UTF-8 beyond the data", u32(16) + u32(4) + "abc"s, false},
        {"bytes beyond the data", u32(1) + u32(4) + "abc"s, false},
        {"of 64 bits the low ones count", u32(14) + u32(4) + u32(1) + "abc"s, false},
        {"a number cut short", u32(6) + u32(4) + "abc"s, false},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        tBytes const bytes = bytesOf(row.bytes);
        cDeserializeBinary d(bytes);
        nstd::cAsciiString ascii("kept");
        nucs::cString text("kept");
        tBytes block = bytesOf("kept");
        unsigned long long number = 5;
        auto const load = [&] {
            switch (bytes[0]) {
            case 10: ascii << d; break;
            case 6: number << d; break;
            case 1:
            case 14: d.loadBlock(block); break;
            default: text << d;
            }
        };
        if (row.wraps) {
            auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>(load);
            ASSERT_TRUE(error.has_value());
            EXPECT_EQ(error->container(), "tConstArrayRef");
            EXPECT_EQ(error->operation(), "provideData");
        } else {
            auto const error = ntest::raisedBy<nstd::cOutOfRangeException>(load);
            ASSERT_TRUE(error.has_value());
            EXPECT_EQ(error->container(), "tConstArrayRef");
            EXPECT_EQ(error->operation(), "provideData");
        }
        EXPECT_EQ(d.currentPos(), 0U);
        EXPECT_EQ(ascii, "kept");
        EXPECT_EQ(text, "kept");
        EXPECT_TRUE(block.isEqual("kept", 4));
        EXPECT_EQ(number, 5U);
    }
}

TEST(cDeserializeBinaryTest, contextsAreLeftAtTheirEndOrReadAgain)
{
    cSerializeBinary s;
    {
        cContext outer(s.newContext("outer"));
        1U >> s;
        s.newLabel("end");
        outer.release();
    }
    2U >> s;
    cDeserializeBinary d(s.data());
    unsigned int number = 0;
    EXPECT_TRUE(d.isContext());
    EXPECT_EQ(d.getNextContextTypeName(), "outer");
    {
        cContext abandoned(d.getContext("outer"));
        number << d;
        EXPECT_TRUE(d.eoc());
        EXPECT_TRUE(d.isLabel());
        EXPECT_EQ(d.getNextLabelName(), "end");
        d.rewind();
        number << d;
        EXPECT_EQ(number, 1U);
        EXPECT_THROW(number << d, nstd::cRuntimeException);
    }
    EXPECT_EQ(d.currentPos(), 0U);
    {
        cContext outer(d.getContext(nullptr));
        outer.release();
        number << d; // still inside until the handle dies
        EXPECT_EQ(number, 1U);
    }
    number << d;
    EXPECT_EQ(number, 2U);

    d.rewind();
    cContext left(d.getContext(nullptr));
    d.releaseCurrentContext();
    d.releaseCurrentContext();
    left.release();
    number << d;
    EXPECT_EQ(number, 2U);

    auto* const dying = new cDeserializeBinary(s.data());
    cContext outer(dying->getContext(nullptr));
    delete dying;
}

TEST(cDeserializeBinaryTest, whatAContextClaimsIsHeldAgainstTheDataAroundIt)
{
    struct cRow {
        char const* name;
        std::string bytes;
        bool isCut;
        unsigned int end;
    };
    cRow const rows[] = {
        {"before itself", context(0xFFFFFFFC, u32(0)), true, 24},
        {"inside its header", context(3, u32(0)), false, 20},
        {"beyond the data", context(0x7FFFFFFF, u32(0)), true, 24},
        {"to its end", context(20, u32(0)), false, 24},
        {"with 64 bits", u32(15) + u32(6) + u32(20) + u32(9) + u32(8) + u32(0) + u32(0), false, 24},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        tBytes const bytes = bytesOf(row.bytes);
        cDeserializeBinary d(bytes);
        {
            cContext claimed(d.getContext(nullptr));
            EXPECT_EQ(d.isContextCut(), row.isCut);
            claimed.release();
        }
        EXPECT_EQ(d.currentPos(), row.end);
    }
    tBytes const bytes = bytesOf(context(40, context(100, u32(0)) + u32(0)));
    cDeserializeBinary d(bytes);
    cContext outer(d.getContext(nullptr));
    cContext inner(d.getContext(nullptr));
    EXPECT_TRUE(d.isContextCut());
    inner.release();
    inner.unset();
    EXPECT_EQ(d.currentPos(), 44U);
    EXPECT_TRUE(d.eoc());
}

// Otherwise many short contexts, each with an item that claims all that follows, would multiply the data.
TEST(cDeserializeBinaryTest, noItemReachesOutOfItsContext)
{
    std::string const items[] = {
        u32(4) + u32(0), u32(10) + u32(3) + "abc"s, u32(14) + u32(3) + u32(0) + "abc"s,
        label("abc"),    context(16, ""),
    };
    for (auto const& item : items) {
        SCOPED_TRACE(static_cast<int>(item[0]));
        auto const size = static_cast<unsigned int>(item.size());
        tBytes const bytes = bytesOf(context(15 + size, item) + u32(0));
        cDeserializeBinary d(bytes);
        cSerializeBinary copy;
        EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfRangeException>([&] { d.reserialize(copy); }).has_value());
        cContext record(d.getContext(nullptr));
        EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfRangeException>([&] { d.skipItem(); }).has_value());
        EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfRangeException>([&] { d.reserialize(copy); }).has_value());
        EXPECT_EQ(d.currentPos(), 20U);
    }
}

TEST(cDeserializeBinaryTest, labelsAreFoundBehindAndBeforeTheReadPosition)
{
    cSerializeBinary s;
    s.setPreferNoLabels(false);
    {
        cContext record(s.newContext("record"));
        s.newLabel("first");
        1U >> s;
        nstd::cAsciiString("x") >> s;
        s.newLabel("second");
        2U >> s;
        bytesOf("abc") >> s;
        record.release();
    }
    s.newLabel("outside");
    cDeserializeBinary d(s.data());
    d.setPreferNoLabels(false);
    cContext record(d.getContext("record"));
    unsigned int number = 0;
    number << d.findLabel("second");
    EXPECT_EQ(number, 2U);
    number << d.findLabel("first");
    EXPECT_EQ(number, 1U);
    unsigned int const position = d.currentPos();
    EXPECT_FALSE(d.tryFindLabel("outside"));
    EXPECT_FALSE(d.trySeekToLabel("first"));
    EXPECT_EQ(d.currentPos(), position);
    tBytes block;
    block << d;
    EXPECT_TRUE(block.isEqual("abc", 3));

    // A label stays the last one when the data it stood in is gone.
    auto gone = std::make_unique<tBytes>(bytesOf(label("gone") + u32(4) + u32(0)));
    d.setData(*gone);
    number << d;
    gone.reset();
    tBytes const other = bytesOf(u32(5) + u32(0));
    d.setData(other);
    auto const error = ntest::raisedBy<nsa::cLabeledTypeMissmatchException>([&] { number << d; });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->lastLabel(), "gone");
}

TEST(cDeserializeBinaryTest, copyingGivesTheSameBytesUpToLabelsAndStringForms)
{
    cSerializeBinary s;
    s.setPreferNoLabels(false);
    cAll().store(s);
    cDeserializeBinary d(s.data());
    cSerializeBinary kept;
    kept.setPreferNoLabels(false);
    kept.setStringStoreMode(cSerializeBinary::ssmUTF8);
    d.reserialize(kept);
    cDeserializeBinary again(kept.data());
    again.setPreferNoLabels(false);
    cAll loaded = cAll::blank();
    loaded.load(again);
    EXPECT_TRUE(loaded == cAll());
    EXPECT_TRUE(again.tryFindLabel("label"));

    cSerializeBinary bare;
    d.reserialize(bare);
    cDeserializeBinary third(bare.data());
    EXPECT_FALSE(third.tryFindLabel("label"));
    cSerializeBinary copy;
    third.reserialize(copy);
    EXPECT_TRUE(copy.ownData() == bare.ownData());
}

TEST(cDeserializeBinaryTest, nestingOfAnyDepthIsWalkedAndCopied)
{
    unsigned int const depth = 200000;
    std::string stored;
    for (unsigned int i = 0; i < depth; ++i)
        stored += context(0x7FFFFFFF, "");
    tBytes const bytes = bytesOf(stored);
    cDeserializeBinary d(bytes);
    EXPECT_EQ(walk(d), depth);
    cSerializeBinary copy;
    d.rewind();
    d.reserialize(copy);
    EXPECT_EQ(copy.currentPos(), 20 * depth);
    {
        std::deque<cContext> open;
        while (!d.eoc())
            open.emplace_back(d.getContext(nullptr));
        while (!open.empty()) // from the outside in
            open.pop_front();
    }
    EXPECT_EQ(d.currentPos(), 20 * (depth - 1));
    d.rewind();
    EXPECT_EQ(d.currentPos(), 0U);

    struct cFailing : cSerializeBinary {
        void store(int) override { throw nstd::cRuntimeException(); }
        using cSerializeBinary::store;
    } failing;
    tBytes const bad = bytesOf(stored + u32(5) + u32(0));
    d.setData(bad);
    EXPECT_THROW(d.reserialize(failing), nstd::cRuntimeException);
    EXPECT_EQ(failing.data().length(), 0U);
}

} // namespace
