#include "nel_core/rmi/publicSlotCall.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "nel_core/rmi/cCallParameterMissmatchException.h"
#include "nel_core/rmi/cNoSuchSlotException.h"
#include "nel_core/rmi/signal0.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/tPtrList.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"
#include "tests/support/storedForm.h"

class cUnfinished;

namespace {

using ntest::messageOf;
using ntest::raisedBy;
using ntest::text;

static_assert(nrmi::kCanTravel<piVoid> && !nrmi::kCanTravel<nsa::cReferenceFrame>);

// The message of the E that is raised.
template<typename E, typename Callable>
std::string messageRaised(Callable&& callable)
{
    auto const error = ntest::raisedBy<E>(callable);
    return error ? messageOf(*error) : "";
}

class cBase : public nrmi::cConnectable {
public:
    piVoid sltInherited() { return called("inherited"); }

    std::string msLog;

protected:
    piVoid called(std::string const& what)
    {
        msLog += what;
        if (auto const action = std::exchange(mAction, nullptr))
            action(); // the object may be gone now
        return piVoid();
    }

public:
    std::function<void()> mAction; ///< taken by the next call
};

class cStation : public cBase {
public:
    piVoid sltRefresh() { return called("refresh"); }
    piUInt32 sltAdd(piUInt32 const& a, piInt32 b)
    {
        called("add");
        return a + static_cast<piUInt32>(b);
    }
    nstd::cAsciiString sltRename(nstd::cAsciiString& name, bool upper, nstd::cAsciiString suffix)
    {
        called("rename");
        nstd::cAsciiString old = name;
        if (upper)
            name.toUpper();
        name += suffix;
        return old;
    }
    piUInt32 sltTwice(piUInt32& value) const noexcept
    {
        value *= 2;
        return value;
    }
    piVoid sltLocal(cStation*, cUnfinished const&) { return called("local"); }
};

// The bytes that come back from a call with these arguments.
std::string calledThroughStream(nrmi::cConnectable const& object, char const* name,
                                std::string const& arguments = "")
{
    return ntest::read(arguments, [&](auto& reader) {
        return ntest::written([&](auto& results) { object.invokeIndirectRemoteSlot(name, reader, results); });
    });
}

std::string signedNumber(unsigned int value)
{
    return ntest::word(5) + ntest::word(value);
}

class cPublicSlotTest : public testing::Test {
protected:
    cPublicSlotTest()
    {
        nrmi::publishSlot(station.get(), "refresh", &cStation::sltRefresh, "");
        nrmi::publishSlot(station.get(), "add", &cStation::sltAdd, "the sum");
        nrmi::publishSlot(station.get(), "rename", &cStation::sltRename, "");
        nrmi::publishSlot(station.get(), "local", &cStation::sltLocal, "");
    }

    std::unique_ptr<cStation> station = std::make_unique<cStation>();
};

std::string flagsOf(nrmi::cSSValue const& value)
{
    return text(value.typeName()) + (value.isAlterable() ? " alterable" : "")
           + (value.isVoid() ? " void" : "");
}

TEST_F(cPublicSlotTest, aPublishedSlotTellsItsTypes)
{
    auto const& rename = *station->findPublicSlot("rename");
    EXPECT_EQ(text(rename.returnTypeName()), "cAsciiString");
    EXPECT_EQ(text(rename.paramTypeNames()), "cAsciiString, piBool, cAsciiString");
    ASSERT_EQ(rename.parameters().size(), 3u);
    EXPECT_EQ(flagsOf(rename.parameters()[0]), "cAsciiString alterable");
    EXPECT_EQ(flagsOf(rename.parameters()[1]), "piBool");
    EXPECT_EQ(flagsOf(rename.returnValue()), "cAsciiString");

    auto const& inherited = nrmi::publishSlot(station.get(), "inherited", &cStation::sltInherited, "of old");
    EXPECT_EQ(text(inherited.paramTypeNames()), "");
    EXPECT_EQ(text(inherited.description()), "of old");
    EXPECT_EQ(inherited.parameters().size(), 0u);
    EXPECT_EQ(flagsOf(inherited.returnValue()), "piVoid void");
    EXPECT_EQ(inherited.slot()->isPublicSlot(), &inherited);
    EXPECT_EQ(text(inherited.slot()->publicSlotName()), "inherited");
}

TEST_F(cPublicSlotTest, lookUps)
{
    auto const& first = *station->findPublicSlot("refresh");
    auto const& second = first.slot()->registerSlotByInterface(
        "refresh", "r", "p", "d",
        nstd::tAutoPtr<nrmi::cAbstractSlotCall>(
            new nrmi::cPublicLocalSlotCall0<cBase, piVoid>(station.get(), &cBase::sltInherited)));
    EXPECT_EQ(station->findPublicSlot("refresh"), &first);
    EXPECT_EQ(station->tryFindSlot("refresh"), first.slot());
    EXPECT_EQ(station->tryFindPublicSlot(*second.slot()), &second);
    EXPECT_EQ(text(station->publicSlotName(*second.slot())), "refresh");
    EXPECT_EQ(*station->hasPublicSlots()->last(), &second);

    cStation stranger;
    auto const unregistered = nrmi::slot(&stranger, &cStation::sltRefresh);
    EXPECT_EQ(stranger.hasPublicSlots(), nullptr);
    EXPECT_EQ(stranger.tryFindSlot("refresh"), nullptr);
    EXPECT_EQ(text(stranger.publicSlotName(unregistered)), "unknown");
    EXPECT_EQ(messageRaised<nstd::cBugException>([&] { unregistered.publicSlotName(); }),
              "Slot is not a public one!");
    if (auto const error = raisedBy<nrmi::cNoSuchSlotException>([&] { stranger.findPublicSlot("x"); })) {
        EXPECT_EQ(messageOf(*error), "Slot \"x((?))\" not found in interface!");
        EXPECT_EQ(text(error->slotArgs()), "(?)");
    }
    EXPECT_THROW(stranger.registerRemoteSlot("x", nstd::tAutoPtr<nrmi::cAbstractSlotCall>()),
                 nstd::cBugException);
    EXPECT_EQ(stranger.tryFindSlot("x"), nullptr);

    station->clear();
    ASSERT_NE(station->hasPublicSlots(), nullptr);
    EXPECT_TRUE(station->hasPublicSlots()->empty());
}

TEST_F(cPublicSlotTest, aCallWorksOnTheObjectsOfTheFrame)
{
    piUInt32 a = 40, sum = 0;
    piInt32 b = -2;
    nsa::cReferenceFrame add;
    add.addRef(a, false, true).addRef(b, false, true).addRef(sum, true, false);
    add.skipNext(); // a call reads from the start
    station->invokeIndirectSlot("add", add);
    EXPECT_EQ(sum, 38u);

    nstd::cAsciiString name("abc"), suffix("!"), old;
    bool upper = true;
    nsa::cReferenceFrame rename;
    rename.addRef(name, true, true).addRef(upper, false, true).addRef(suffix, false, true);
    rename.addRef(old, true, false);
    station->invokeIndirectSlot("rename", rename);
    EXPECT_EQ(text(name), "ABC!");
    EXPECT_EQ(text(old), "abc");
    EXPECT_EQ(text(suffix), "!");

    // A connected copy can be called in the same way.
    nrmi::localSignal0<piVoid> signal;
    auto const& refresh =
        static_cast<nrmi::cAbstractSlotCall0<piVoid> const&>(*station->tryFindSlot("refresh"));
    std::unique_ptr<nrmi::cAbstractSlotCall> const copy(refresh.createConnectedInstance(signal));
    piVoid result;
    nsa::cReferenceFrame frame;
    copy->call(frame.addRef(result, true, false));
    EXPECT_EQ(station->msLog, "addrenamerefresh");
    EXPECT_EQ(copy->isPublicSlot(), nullptr);
}

struct cFailingCall {
    char const* name;
    char const* slot;
    char const* entries; ///< u, i, v: a piUInt32, a piInt32, a piVoid; r: a reference that cannot be written
    char const* type;
    char const* message;
    char const* cause = "";
};

char const* const kMissing = "Missing return value on reference frame while indirect slot call!";

cFailingCall const kFailingCalls[] = {
    {"no result", "add", "ui", "cRuntimeException", kMissing, "cOutOfBoundsException"},
    {"another result", "add", "uii", "cRuntimeException", kMissing, "cTypeMissmatchException"},
    {"too few arguments", "add", "u", "cOutOfBoundsException", nullptr},
    {"another argument", "add", "uuu", "cTypeMissmatchException",
     "Type mismatch: Expecting type \"piInt32\" but got object of type \"piUInt32\"!"},
    {"no result and no arguments", "refresh", "", "cOutOfBoundsException", nullptr},
    {"another result and no arguments", "refresh", "u", "cTypeMissmatchException",
     "Type mismatch: Expecting type \"piVoid\" but got object of type \"piUInt32\"!"},
    {"no slot", "nope", "uiv", "cNoSuchSlotException",
     "Slot \"nope((piUInt32, piInt32))\" not found in interface"},
    {"no slot and no types", "nope", "ur", "cNoSuchSlotException",
     "Slot \"nope((?))\" not found in interface"},
    {"a direct call", "direct", "v", "cBugException", "Indirect slots cannot be called by reference!"},
};

TEST_F(cPublicSlotTest, aFailingCallByNameDoesNotReachTheSlot)
{
    station->registerRemoteSlot(
        "direct", nstd::tAutoPtr<nrmi::cAbstractSlotCall>(new nrmi::cDirectLocalSlotCall0<cStation, piVoid>(
                      station.get(), &cStation::sltRefresh)));
    piUInt32 u = 1;
    piInt32 i = 2;
    piVoid v;
    cStation* r = nullptr;
    for (auto const& row : kFailingCalls) {
        SCOPED_TRACE(row.name);
        nsa::cReferenceFrame frame;
        for (char const entry : std::string(row.entries)) {
            if (entry == 'u')
                frame.addRef(u, true, true);
            else if (entry == 'i')
                frame.addRef(i, true, true);
            else if (entry == 'v')
                frame.addRef(v, true, true);
            else
                frame.addRef(r, true, true);
        }
        try {
            station->invokeIndirectSlot(row.slot, frame);
            ADD_FAILURE() << "nothing was raised";
        } catch (nstd::cAbstractException const& error) {
            EXPECT_EQ(text(error.typeName()), row.type);
            EXPECT_EQ(messageOf(error), row.message ? row.message : messageOf(error));
            EXPECT_EQ(error.history() ? text(error.history()->typeName()) : "", row.cause);
        }
        EXPECT_EQ(u, 1u);
    }
    EXPECT_EQ(station->msLog, "");
}

TEST_F(cPublicSlotTest, aCallThroughAStream)
{
    using namespace ntest;
    EXPECT_EQ(calledThroughStream(*station, "refresh"), "");
    EXPECT_EQ(calledThroughStream(*station, "add", number(3) + signedNumber(4)), number(7));
    EXPECT_EQ(calledThroughStream(*station, "rename", ascii("a") + boolean(true) + ascii("b")),
              ascii("a") + ascii("Ab"));
    station->msLog.clear();

    auto const unsuited = number(3) + number(4);
    if (auto const error = raisedBy<nrmi::cCallParameterMissmatchException>(
            [&] { calledThroughStream(*station, "add", unsuited); })) {
        EXPECT_EQ(messageOf(*error), "Slot parameter of (add) or return value missmatch!");
        EXPECT_EQ(text(error->slotName()), "add");
        ASSERT_NE(error->history(), nullptr);
        EXPECT_EQ(messageOf(*error->history()), "Definition: \"piUInt32 add(piUInt32, piInt32)\"");
        EXPECT_TRUE(error->history()->history()->has("cTypeMissmatchException"));
    }
    nrmi::cPublicLocalSlotCall2<cStation, piUInt32, piUInt32 const&, piInt32> const loose(station.get(),
                                                                                          &cStation::sltAdd);
    if (auto const error = raisedBy<nrmi::cCallParameterMissmatchException>([&] {
            nsa::cDeserializeBinary nothing;
            nsa::cSerializeBinary results;
            loose.call(nothing, results);
        })) {
        EXPECT_EQ(messageOf(*error), "Slot parameter or return value missmatch on unregistered slot!");
        EXPECT_EQ(messageOf(*error->history()), "Unable to deserialize - end of context!");
    }
    if (auto const error =
            raisedBy<nstd::cBugException>([&] { calledThroughStream(*station, "local", unsuited); })) {
        EXPECT_EQ(messageOf(*error),
                  std::string("Attempt to serialize the local type ") + typeid(cStation*).name() + "!");
    }
    EXPECT_EQ(messageRaised<nrmi::cNoSuchSlotException>([&] { calledThroughStream(*station, "nope"); }),
              "Slot \"nope((?))\" not found in interface!");
    EXPECT_EQ(station->msLog, "");

    // What the slot raises is not about its arguments.
    station->mAction = [] { nrmi::cRMIExceptions::throwUnconnectedSignal(); };
    EXPECT_FALSE(
        raisedBy<nstd::cRuntimeException>([&] { calledThroughStream(*station, "refresh"); })->history());
}

TEST_F(cPublicSlotTest, aSlotMayBeConstantAndTheObjectBeNamed)
{
    auto const& published = nrmi::publishSlot(*station, "twice", &cStation::sltTwice, "");
    EXPECT_EQ(flagsOf(published.parameters()[0]), "piUInt32 alterable");
    EXPECT_EQ(calledThroughStream(*station, "twice", ntest::number(3)), ntest::number(6) + ntest::number(6));

    nrmi::localSignal1<piUInt32, piUInt32&> signal;
    signal.connect(nrmi::slot(station.get(), &cStation::sltTwice));
    piUInt32 value = 4;
    signal(value);
    EXPECT_EQ(value, 8u);
}

// All the ways to make a call by name; what the slot does to the object must not matter to any.
TEST_F(cPublicSlotTest, aSlotMayDestroyAllThatIsPartOfTheCall)
{
    for (bool const isDeleted : {true, false}) {
        for (int way = 0; way < 4; ++way) {
            SCOPED_TRACE(way + (isDeleted ? 10 : 0));
            auto object = std::make_unique<cStation>();
            nrmi::signal0<piVoid> signal;
            nrmi::publishSlot(object.get(), "refresh", &cStation::sltRefresh, "");
            piVoid result;
            auto frame = std::make_unique<nsa::cReferenceFrame>();
            frame->addRef(result, true, false);
            object->mAction = [&] {
                frame.reset();
                isDeleted ? object.reset() : object->clear();
            };
            if (way == 0)
                object->invokeIndirectSlot("refresh", *frame);
            else if (way == 1)
                calledThroughStream(*object, "refresh");
            else {
                signal.connect(*object, "refresh",
                               way == 2 ? nrmi::cAbstractSignal::srLazy : nrmi::cAbstractSignal::srResolve);
                signal();
            }
            EXPECT_EQ(object != nullptr, !isDeleted);
            if (object) {
                EXPECT_EQ(object->msLog, "refresh");
                EXPECT_TRUE(object->hasPublicSlots()->empty());
            }
            EXPECT_FALSE(signal.isConnected());
        }
    }
}

TEST_F(cPublicSlotTest, connectionsByName)
{
    nrmi::signal0<piVoid> signal;
    signal.connect(*station, "later", nrmi::cAbstractSignal::srLazy);
    signal.connect(*station, "refresh", nrmi::cAbstractSignal::srResolve);
    EXPECT_EQ(messageRaised<nrmi::cNoSuchSlotException>(
                  [&] { signal.connect(*station, "nope", nrmi::cAbstractSignal::srResolve); }),
              "Slot \"nope((?))\" not found in interface!");
    EXPECT_EQ(messageRaised<nrmi::cNoSuchSlotException>([&] { signal(); }),
              "Slot \"later(())\" not found in interface");
    EXPECT_EQ(station->msLog, "");

    nrmi::publishSlot(station.get(), "later", &cStation::sltInherited, "");
    signal.connect(nrmi::slot(station.get(), &cStation::sltRefresh), nrmi::cAbstractSignal::cpPrepend);
    signal();
    EXPECT_EQ(station->msLog, "refreshinheritedrefresh");

    nrmi::cIndirectLazySlotCall0<piVoid> const lazy(*station, "refresh");
    nsa::cReferenceFrame frame;
    piVoid result;
    frame.addRef(result, true, false);
    EXPECT_EQ(messageRaised<nstd::cBugException>([&] { lazy.call(frame); }),
              "Indirect slots cannot be called by reference!");
    auto const assertion = messageRaised<nstd::cBugException>(
        [&] { nrmi::cIndirectResolvingSlotCall0<piVoid> const none(*station, nullptr); });
    EXPECT_NE(assertion.find("(mpCall != 0)"), std::string::npos);
    station.reset();
    EXPECT_FALSE(signal.isConnected());
}

// Takes the public slot of that name back.
void withdraw(cStation& object, std::string const& name)
{
    auto& slots = object.codRSlots();
    auto at = slots.begin();
    while (text((*at)->name()) != name)
        ++at;
    slots.erase(at);
}

TEST_F(cPublicSlotTest, aConnectionKnowsThatItsSlotIsWithdrawn)
{
    nrmi::signal0<piVoid> signals[4];
    for (auto& signal : signals)
        signal.connect(*station, "refresh", nrmi::cAbstractSignal::srResolve);
    nrmi::cIndirectResolvingSlotCall0<piVoid> const resolved(*station, station->tryFindSlot("refresh"));
    signals[1].disconnect(*station); // one in the middle, one at the end
    signals[0].disconnect(*station);
    station->mAction = [&] { withdraw(*station, "refresh"); };
    signals[3]();
    EXPECT_EQ(station->msLog, "refresh");
    for (auto* const signal : {&signals[3], &signals[2]})
        EXPECT_EQ(messageRaised<nrmi::cNoSuchSlotException>([&] { (*signal)(); }),
                  "Slot \"refresh(())\" not found in interface");
    EXPECT_THROW(signals[0].connect(resolved), nstd::cBugException);
    EXPECT_FALSE(signals[0].isConnected());
}

class cBareCall : public nrmi::cAbstractSlotCall {
public:
    explicit cBareCall(nrmi::cConnectable& object) : cAbstractSlotCall(object, nullptr) { }
};

TEST_F(cPublicSlotTest, aPublicationThatFailsLeavesNothing)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    auto* const last = *station->hasPublicSlots()->last();
    bool isDone = false;
    ntest::failEachRequest(
        [&] { nrmi::publishSlot(station.get(), "late", &cStation::sltAdd, "late"), isDone = true; },
        [&] { EXPECT_TRUE(isDone || *station->hasPublicSlots()->last() == last); });
    EXPECT_TRUE(isDone);
}

using cSlotCallTest = ntest::cSystemFixture;

TEST_F(cSlotCallTest, aCallThatCallsNothingSaysSo)
{
    ntest::cDebugRecorder recorder;
    nrmi::cConnectable object;
    object.registerRemoteSlot("bare", nstd::tAutoPtr<nrmi::cAbstractSlotCall>(new cBareCall(object)));
    nsa::cReferenceFrame frame;
    object.invokeIndirectSlot("bare", frame);
    EXPECT_EQ(recorder.text(), "DummyCall (1)\n");
    recorder.clear();
    calledThroughStream(object, "bare");
    EXPECT_EQ(recorder.lines().back(), "DummyCall (2)");
    EXPECT_GT(recorder.lines().size(), 3u); // the stack trace
    EXPECT_EQ(text(object.findPublicSlot("bare")->description()), "tmp remoteslot");
}

} // namespace
