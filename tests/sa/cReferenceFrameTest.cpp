#include "nel_core/sa/cReferenceFrame.h"

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/sa/cSerializeToTypeString.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/cTypeMissmatchException.h"
#include "nel_core/std/tPtrVector.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/expectRefusal.h"

struct cShape {
    int sides;
};
NEL_TYPE_NAME(cShape, "shape")

namespace {

using nsa::cDeserializeBinary;
using nsa::cReferenceFrame;
using nsa::cSerializeBinary;
using nsa::cSerializeToTypeString;
using nsa::kIsSerializable;

enum Colour { coRed };
struct cAbstractThing {
    virtual ~cAbstractThing() = default;
    virtual int number() const = 0;
};
struct cThing : cAbstractThing {
    int number() const override { return 5; }
};
struct cRecord {
    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& target) const { return number >> target; }
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& source) { return number << source; }
    int number = 0;
};

static_assert(kIsSerializable<int> && kIsSerializable<bool> && kIsSerializable<char>);
static_assert(kIsSerializable<nstd::cAsciiString> && kIsSerializable<nucs::cString>);
static_assert(kIsSerializable<cRecord> && kIsSerializable<piVoid> && kIsSerializable<cReferenceFrame>);
static_assert(kIsSerializable<nstd::tList<int>> && kIsSerializable<nstd::tVector<nstd::tList<cRecord>>>);
static_assert(!kIsSerializable<Colour> && !kIsSerializable<long> && !kIsSerializable<cShape>);
static_assert(!kIsSerializable<int*> && !kIsSerializable<char const*> && !kIsSerializable<cRecord*>);
static_assert(!kIsSerializable<nstd::tVector<nstd::tList<int*>>> && !kIsSerializable<nstd::tList<cShape>>);
static_assert(!kIsSerializable<nstd::tPtrList<int>> && !kIsSerializable<nstd::tPtrVector<int>>);

std::string typesOf(cReferenceFrame const& frame, bool alterableOnly = false, bool readableOnly = false)
{
    cSerializeToTypeString types;
    frame.store(types, alterableOnly, readableOnly);
    return ntest::text(types.typeString());
}

std::string const kOut = "Serialization error (cReferenceFrame)! | ";
std::string const kIn = "Deserialization error in (cReferenceFrame)! | ";

// Expects the messages of an exception and its causes, joined.
template<typename Callable>
void expectChain(std::string const& expected, Callable&& callable)
{
    std::string chain;
    if (auto const error = ntest::raisedBy<nstd::cRuntimeException>(callable)) {
        chain = ntest::messageOf(*error);
        for (auto const* cause = error->history(); cause; cause = cause->history())
            chain += " | " + ntest::messageOf(*cause);
    }
    EXPECT_EQ(chain, expected);
}

struct cExampleFrame : cReferenceFrame {
    cExampleFrame()
    {
        addRef(number, false, true).addRef(text, true, true).addRef(flag, true, false);
        addRef(nothing, true, true);
    }

    int number = 7;
    nucs::cString text = "seven";
    bool flag = true;
    piVoid nothing;
};
std::string const kExample = "piInt32, cString, piBool";

TEST(cReferenceFrameTest, theFlagsSelectWhatTravels)
{
    struct {
        bool alterableOnly, readableOnly;
        std::string types;
    } const kRows[] = {
        {false, false, kExample},
        {false, true, "piInt32, cString"},
        {true, false, "cString, piBool"},
        {true, true, "cString"},
    };
    for (auto const& row : kRows) {
        SCOPED_TRACE(row.types);
        cExampleFrame const sent;
        EXPECT_EQ(typesOf(sent, row.alterableOnly, row.readableOnly), row.types);

        cSerializeBinary out, again;
        sent.store(out, row.alterableOnly, row.readableOnly);
        cDeserializeBinary in(out.data());
        cExampleFrame received;
        received.number = 0;
        received.text = "";
        received.flag = false;
        received.load(in, row.alterableOnly, row.readableOnly);
        received.store(again, row.alterableOnly, row.readableOnly);
        EXPECT_TRUE(again.data() == out.data());
    }
}

TEST(cReferenceFrameTest, readingGivesTheObjectsInOrderAndNeverBeyondTheEnd)
{
    unsigned int number = 1;
    cShape shape{2};
    cThing thing;
    cAbstractThing& abstract = thing;
    cAbstractThing* pointer = &thing;
    cReferenceFrame frame;
    EXPECT_TRUE(frame.empty());
    EXPECT_FALSE(frame.canRead());
    frame.addRef(number, false, true).addRef(shape, true, true).addRef(abstract, true, false);
    frame.addRef(pointer, false, false);

    auto const error = ntest::raisedBy<nstd::cTypeMissmatchException>([&] { frame.readNext<int>(); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->expectedType(), "piInt32");
    EXPECT_EQ(error->assignedType(), "piUInt32");
    EXPECT_EQ(&frame.readNext<unsigned int>(), &number);
    EXPECT_EQ(&frame.readNext<cShape>(), &shape);
    EXPECT_EQ(&frame.readNext<cAbstractThing>(), &thing);
    EXPECT_TRUE(frame.canRead());
    EXPECT_STREQ(frame.currentReference().mangeledTypeName(), typeid(pointer).name());
    frame.skipNext();
    EXPECT_FALSE(frame.canRead());

    ntest::cRefusal const kNothingThere{"tList", "tIterator::operator*()", ntest::kOutOfBounds};
    ntest::expectRefusal([&] { frame.readNext<int>(); }, kNothingThere);
    ntest::expectRefusal([&] { frame.currentReference(); }, kNothingThere);
    ntest::expectRefusal([&] { frame.skipNext(); },
                         {"tList", "cIteratorBase::operator++()", ntest::kOutOfBounds});
    frame.restartReading();
    EXPECT_EQ(frame.readNext<unsigned int>(), 1u);
}

TEST(cReferenceFrameTest, onlyANestedFrameLeavesTheCursorWhereItIs)
{
    cExampleFrame nested;
    cReferenceFrame frame;
    frame.addRef(nested, true, true);
    EXPECT_FALSE(frame.canRead());
    frame.addRef(nested.number, true, true);
    EXPECT_EQ(frame.currentReference().isSubReferenceFrame(), &nested);
    EXPECT_STREQ(frame.currentReference().typeName(), "cReferenceFrame");
    EXPECT_EQ(&frame.readNext<cReferenceFrame>(), &nested);
    frame.addRef(nested, true, true);
    EXPECT_EQ(frame.readNext<int>(), 7);
    EXPECT_EQ(typesOf(frame), kExample + ", piInt32, " + kExample);
}

// Rings, a frame reached on two ways, and more of them than a stack would hold.
TEST(cReferenceFrameTest, restartReachesEveryNestedFrameOnce)
{
    int number = 3;
    std::vector<std::unique_ptr<cReferenceFrame>> frames(100000);
    for (auto& frame : frames)
        frame = std::make_unique<cReferenceFrame>();
    for (std::size_t i = 0; i < frames.size(); ++i) {
        frames[i]->addRef(*frames[(i + 1) % frames.size()], true, true).addRef(number, true, true);
        frames[i]->addRef(*frames[i], true, true).addRef(*frames[i / 2], true, true);
    }
    for (std::size_t const first : {0u, 99999u, 0u}) {
        for (auto const& frame : frames) {
            frame->skipNext();
            frame->skipNext();
        }
        frames[first]->restartReading();
        for (auto const& frame : frames)
            ASSERT_NE(frame->currentReference().isSubReferenceFrame(), nullptr);
    }
}

TEST(cReferenceFrameTest, aFrameThatHoldsItselfCannotTravel)
{
    int number = 1;
    cReferenceFrame outer, inner;
    outer.addRef(number, true, true).addRef(inner, true, true);
    inner.addRef(outer, true, true);
    std::string const kSelf = "Attempt to serialize the local type cReferenceFrame!";
    for (int round = 0; round < 2; ++round) {
        cSerializeBinary out;
        expectChain(kOut + kOut + kSelf, [&] { outer.store(out); });
        cDeserializeBinary in(out.data());
        expectChain(kIn + kIn + kSelf, [&] { outer.load(in); });
        in.rewind();
        expectChain(kIn + kIn + kSelf, [&] { inner.loadLast(in); });
    }
    inner = cReferenceFrame();
    EXPECT_EQ(typesOf(outer), "piInt32");
}

TEST(cReferenceFrameTest, copiesReferToTheSameObjectsFromTheStart)
{
    cExampleFrame original;
    cReferenceFrame copy(original), other;
    copy.skipNext();
    other = copy;
    other.readNext<int>() = 8;
    EXPECT_EQ(original.number, 8);
    EXPECT_EQ(copy.readNext<nucs::cString>(), original.text);

    other.append(other);
    EXPECT_EQ(other.readNext<int>(), 8);
    other.append_net(other);
    EXPECT_EQ(other.readNext<int>(), 8);
    copy.swap(other);
    EXPECT_EQ(copy.readNext<int>(), 8);
    EXPECT_EQ(other.readNext<int>(), 8);
    EXPECT_EQ(typesOf(copy), kExample + ", " + kExample + ", " + kExample + ", " + kExample);
    EXPECT_EQ(typesOf(other), kExample);
    copy = cReferenceFrame();
    EXPECT_TRUE(copy.empty());
    EXPECT_FALSE(copy.canRead());
}

TEST(cReferenceFrameTest, aFailedAppendChangesNothing)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    cExampleFrame const more;
    cReferenceFrame frame;
    int number = 1;
    frame.addRef(number, false, false);
    frame.skipNext();
    auto const check = [&] {
        std::string const types = typesOf(frame);
        EXPECT_EQ(types, frame.canRead() ? "piInt32, " + kExample : "piInt32");
    };
    auto const refusals = ntest::failEachRequest([&] { frame.append(more); }, check);
    EXPECT_GT(refusals, 2u);
}

TEST(cReferenceFrameTest, aFailureIsTheCauseAndWhatCameBeforeStays)
{
    int number = 1;
    cShape shape{2};
    cRecord result{3};
    cReferenceFrame frame;
    frame.addRef(number, false, true).addRef(shape, true, false).addRef(result, false, true);
    std::string const kCause = "Attempt to serialize the local type shape!";

    cSerializeBinary out;
    expectChain(kOut + kCause, [&] { frame.store(out); });
    EXPECT_EQ(out.data().length(), 8u);
    4 >> out;
    cDeserializeBinary in(out.data());
    number = 0;
    expectChain(kIn + kCause, [&] { frame.load(in); });
    EXPECT_EQ(number, 1);
    frame.loadLast(in);
    EXPECT_EQ(result.number, 4);
    expectChain(kIn + "Unable to deserialize - end of context!", [&] { frame.loadLast(in); });
    EXPECT_EQ(result.number, 4);

    cReferenceFrame().loadLast(in);
    frame.store(out, false, true); // without the one that cannot travel
    EXPECT_EQ(out.data().length(), 32u);
}

} // namespace
