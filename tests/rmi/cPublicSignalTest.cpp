#include "nel_core/rmi/cPublicSignal.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "nel_core/rmi/cAbstractRMIFactory.h"
#include "nel_core/rmi/cNoSuchSignalException.h"
#include "nel_core/rmi/cPublicSlot.h"
#include "nel_core/rmi/cUnconnectedSignalException.h"
#include "nel_core/rmi/signal0.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/tPtrList.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/raisedBy.h"
#include "tests/support/storedForm.h"

class cUnfinished;

namespace {

using ntest::ascii;
using ntest::messageOf;
using ntest::text;

// The message of the E that is raised.
template<typename E, typename Callable>
std::string messageRaised(Callable&& callable)
{
    auto const error = ntest::raisedBy<E>(callable);
    return error ? messageOf(*error) : "";
}

class cFullSignal : public nrmi::signal0<piVoid> {
public:
    void addParameterInfo(nrmi::cPublicSignal& publicSignal) override
    {
        nrmi::signal0<piVoid>::addParameterInfo(publicSignal);
        publicSignal.addParameter().set("cThing", true, false);
        if (mbFails)
            nrmi::cRMIExceptions::throwUnconnectedSignal();
    }

    bool mbFails = false;
};

class cPublicSignalTest : public testing::Test {
protected:
    nrmi::cPublicSignal& publish(nrmi::cAbstractSignal& signal, char const* name)
    {
        return signal.exportSignal(
            object, name, static_cast<nrmi::cAbstractSignal::InterfaceType>(0x80000001), "free text");
    }

    nrmi::cConnectable object;
};

TEST_F(cPublicSignalTest, anExportedSignalTellsItsTypes)
{
    nrmi::signal0<piVoid> plain;
    nrmi::localSignal0<piVoid> local;
    nrmi::localSignal2<piVoid, nstd::cAsciiString const&, bool&> two;
    nrmi::localSignal1<piUInt32, cUnfinished const&> unfinished;

    auto const& exported = publish(plain, "plain");
    EXPECT_EQ(text(exported.returnTypeName()), "piVoid");
    EXPECT_EQ(text(exported.paramTypeNames()), "");
    EXPECT_EQ(text(exported.description()), "free text");
    EXPECT_EQ(exported.type(), 0x80000001u);
    nrmi::cSSValue nothing;
    nothing.set("piVoid", false, true);
    EXPECT_EQ(exported.returnValue(), nothing);
    EXPECT_EQ(plain.isPublicSignal(), &exported);

    EXPECT_EQ(text(publish(local, "").returnTypeName()), "");
    auto const& described = publish(two, "two");
    EXPECT_EQ(text(described.returnTypeName()), "piVoid");
    EXPECT_EQ(text(described.paramTypeNames()), "cAsciiString, piBool");
    EXPECT_TRUE(described.parameters().empty());
    EXPECT_EQ(described.returnValue(), nrmi::cSSValue());
    EXPECT_EQ(text(unfinished.parametersTypeString()), "11cUnfinished");
    EXPECT_EQ(text(unfinished.returnTypeString()), "piUInt32");
}

TEST_F(cPublicSignalTest, lookUps)
{
    nrmi::signal0<piVoid> signal, other;
    auto const expectMissing = [&](auto&& find) {
        EXPECT_EQ(messageRaised<nrmi::cNoSuchSignalException>(find),
                  "Signal \"a\" could not be found in interface!");
    };
    expectMissing([&] { object.findSignal("a"); });
    EXPECT_EQ(messageRaised<nstd::cBugException>([&] { signal.publicSignalName(); }),
              "Signal is not a public one!");
    EXPECT_EQ(object.hasPublicSignals(), nullptr);

    auto const& first = publish(signal, "a");
    auto const& second = publish(other, "a");
    EXPECT_EQ(&object.findSignal("a"), &signal);
    EXPECT_EQ(object.findPublicSignal("a"), &first);
    EXPECT_EQ(*object.hasPublicSignals()->last(), &second);
    EXPECT_EQ(text(other.publicSignalName()), "a");
    object.clear();
    EXPECT_TRUE(object.hasPublicSignals()->empty());
    expectMissing([&] { object.findPublicSignal("a"); });
}

TEST_F(cPublicSignalTest, whoeverDiesFirstIsForgotten)
{
    auto signal = std::make_unique<nrmi::signal0<piVoid>>();
    auto other = std::make_unique<nrmi::cConnectable>();
    auto& first = publish(*signal, "a");
    auto const& second = signal->exportSignal(*other, "b", nrmi::cAbstractSignal::itDefault, "");
    auto const& third = publish(*signal, "c");
    EXPECT_EQ(signal->isPublicSignal(), &third);
    signal->setPublicSignal(&first);
    EXPECT_EQ(signal->isPublicSignal(), &first);
    EXPECT_EQ(second.signal(), signal.get());
    other.reset();
    signal.reset();
    EXPECT_EQ(first.signal(), nullptr);
    EXPECT_EQ(third.signal(), nullptr);
    EXPECT_THROW(object.findSignal("c"), nrmi::cNoSuchSignalException);

    nrmi::signal0<piVoid> lasting;
    for (char const* const name : {"a", "b"})
        publish(lasting, name);
    nrmi::cPublicSignal loose("", "", "", nrmi::cAbstractSignal::itDefault, "", lasting);
    EXPECT_EQ(text(lasting.publicSignalName()), "b");
    object.clear();
    EXPECT_EQ(lasting.isPublicSignal(), nullptr);
    lasting.setPublicSignal(&loose);
    lasting.setPublicSignal(nullptr);
    EXPECT_EQ(lasting.isPublicSignal(), nullptr);

    auto hidden = std::make_unique<nrmi::signal0<piVoid>>();
    publish(*hidden, "hidden");
    hidden->setPublicSignal(nullptr);
    EXPECT_EQ(hidden->isPublicSignal(), nullptr);
    EXPECT_EQ(&object.findSignal("hidden"), hidden.get());
    hidden.reset();
    EXPECT_THROW(object.findSignal("hidden"), nrmi::cNoSuchSignalException);
}

TEST_F(cPublicSignalTest, anExportThatFailsLeavesNothing)
{
    cFullSignal signal;
    publish(signal, "a");
    signal.mbFails = true;
    EXPECT_THROW(publish(signal, "b"), nrmi::cUnconnectedSignalException);
    EXPECT_EQ(object.hasPublicSignals()->size(), 1u);
    EXPECT_EQ(text(signal.publicSignalName()), "a");

    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    signal.mbFails = false;
    bool isDone = false;
    ntest::failEachRequest([&] { publish(signal, "b"), isDone = true; },
                           [&] { EXPECT_EQ(text(signal.publicSignalName()), isDone ? "b" : "a"); });
    EXPECT_TRUE(isDone);
    EXPECT_EQ(object.hasPublicSignals()->size(), 2u);
}

// The stored forms
// ---------------------------------------------------------------------------------------------

class cForwardingCall : public nrmi::cAbstractSlotCall {
public:
    explicit cForwardingCall(nrmi::cConnectable& object) : cAbstractSlotCall(object, nullptr) { }
};

class cFactory : public nrmi::cAbstractRMIFactory {
public:
    nstd::tAutoPtr<nrmi::cAbstractSlotCall> createRemoteSlotCall(nrmi::cConnectable& object) override
    {
        return nstd::tAutoPtr<nrmi::cAbstractSlotCall>(new cForwardingCall(object));
    }
    nrmi::cAbstractSignal& createRemoteSignal(unsigned int index) override
    {
        miIndex = index;
        return mSignal;
    }

    nrmi::signal0<piVoid> mSignal;
    unsigned int miIndex = 0;
};

std::string value(char const* typeName, char const* description, bool alterable, bool isVoid)
{
    return ascii(typeName) + ascii(description) + ntest::boolean(alterable) + ntest::boolean(isVoid);
}

std::string vectorOf(std::string const& values)
{
    return ntest::word(12) + ntest::number(static_cast<unsigned int>(16 + 15 + values.size()))
           + ntest::boolean(true) + ascii("unknown") + values;
}

// Every cut raises, whatever the description is read into.
template<typename Load>
void expectEveryCutToRaise(std::string const& bytes, Load&& load)
{
    for (std::size_t cut = 0; cut < bytes.size(); ++cut)
        EXPECT_THROW(ntest::read(bytes.substr(0, cut), load), nstd::cAbstractException) << cut;
}

TEST_F(cPublicSignalTest, theDescriptionOfASignalTravels)
{
    cFullSignal signal;
    auto& published = publish(signal, "full");
    published.parameters()[0].setDescription("the thing");
    auto const bytes = ntest::written([&](auto& writer) { published >> writer; });
    EXPECT_EQ(bytes, ascii("full") + ascii("piVoid") + ascii("") + ascii("free text")
                         + ntest::number(0x80000001) + vectorOf(value("cThing", "the thing", true, false))
                         + value("piVoid", "", false, true));

    cFactory factory;
    nrmi::cConnectable remote;
    remote.setIndex(17);
    auto const load = [&](auto& reader) { remote.registerRemoteSignal(reader, factory); };
    expectEveryCutToRaise(bytes, load);
    EXPECT_EQ(remote.hasPublicSignals(), nullptr);
    ntest::read(bytes, load);
    EXPECT_EQ(factory.miIndex, 17u);
    EXPECT_EQ(&remote.findSignal("full"), &factory.mSignal);
    EXPECT_EQ(text(factory.mSignal.publicSignalName()), "full");
    auto& loaded = *remote.findPublicSignal("full");
    EXPECT_EQ(ntest::written([&](auto& writer) { loaded >> writer; }), bytes);

    ntest::read(bytes, [&](auto& reader) { published << reader; });
    EXPECT_EQ(published.parameters().size(), 1u);
    expectEveryCutToRaise(bytes, [&](auto& reader) { loaded << reader; });
    EXPECT_EQ(loaded.parameters().size(), 0u);
    EXPECT_EQ(text(loaded.name()), "full");
}

TEST_F(cPublicSignalTest, theDescriptionOfASlotTravels)
{
    cFactory factory;
    auto const values = value("piInt32", "x", true, false) + value("", "", false, true);
    auto const bytes = ascii("add") + ascii("piUInt32") + ascii("piInt32, ?") + ascii("the sum")
                       + vectorOf(values) + value("piUInt32", "y", false, false);
    auto const load = [&](auto& reader) { object.registerRemoteSlot(reader, factory); };
    expectEveryCutToRaise(bytes, load);
    EXPECT_EQ(object.hasPublicSlots(), nullptr);
    ntest::read(bytes, load);
    auto& loaded = *object.findPublicSlot("add");
    EXPECT_EQ(loaded.slot()->isPublicSlot(), &loaded);
    EXPECT_EQ(text(loaded.paramTypeNames()), "piInt32, ?");
    auto const other = ascii("subtract") + bytes.substr(ascii("add").size());
    expectEveryCutToRaise(other, [&](auto& reader) { loaded << reader; }); // and leaves the old one
    EXPECT_EQ(ntest::written([&](auto& writer) { loaded >> writer; }), bytes);
}

} // namespace
