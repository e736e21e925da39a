#include "nel_core/rmi/cConnectable.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "nel_core/rmi/localSignal.h"

namespace {

// A signal that only notes that it is told to drop an object.
class cNotingSignal : public nrmi::cAbstractSignal {
public:
    cNotingSignal(std::string& log, char name) : msLog(log), mcName(name) { }

    void notifyConnectableDestroyed(nrmi::cConnectable& object) override
    {
        msLog += mcName;
        if (mAction)
            mAction(object);
    }
    void connect(nrmi::cConnectable&, nstd::cAsciiString const&, SlotResolving) override { }
    void disconnect(nrmi::cConnectable const&) override { }
    void addParameterInfo(nrmi::cPublicSignal&) override { }

    std::function<void(nrmi::cConnectable&)> mAction;

private:
    std::string& msLog;
    char const mcName;
};

class cReceiver : public nrmi::cConnectable {
public:
    piVoid sltCount()
    {
        ++miCalls;
        return piVoid();
    }

    int miCalls = 0;
};

class cConnectableTest : public testing::Test {
protected:
    std::string log;
    cNotingSignal a{log, 'a'}, b{log, 'b'}, c{log, 'c'};
};

TEST_F(cConnectableTest, signalsAreToldOnceAnEntryInOrder)
{
    nrmi::cConnectable object;
    for (auto* const signal : {&a, &b, &a, &c})
        object.notifySignalAttached(*signal);
    object.detachAllSignals();
    EXPECT_EQ(log, "abac");
    object.detachAllSignals(); // no entry is left
    object.clear();
    EXPECT_EQ(log, "abac");
}

TEST_F(cConnectableTest, entriesOfASignalGoTogether)
{
    {
        nrmi::cConnectable object;
        for (auto* const signal : {&a, &b, &a, &b, &c})
            object.notifySignalAttached(*signal);
        object.notifySignalDetached(a);
        object.reAssign(b, c);
        object.notifySignalDetached(b);
    }
    EXPECT_EQ(log, "ccc");
}

TEST_F(cConnectableTest, theWalkKeepsTheEntriesThatAreDetachedMeanwhile)
{
    nrmi::cConnectable object;
    a.mAction = [this](nrmi::cConnectable& o) { o.notifySignalDetached(b); };
    object.notifySignalAttached(a);
    object.notifySignalAttached(b);
    object.detachAllSignals();
    EXPECT_EQ(log, "ab");
    object.notifySignalAttached(b);
    object.notifySignalDetached(b);
    object.clear();
    EXPECT_EQ(log, "ab");
}

TEST_F(cConnectableTest, signalsMayDieDuringTheWalk)
{
    cReceiver receiver;
    std::vector<std::unique_ptr<nrmi::localSignal0<piVoid>>> signals;
    for (int i = 0; i < 4; ++i)
        signals.push_back(std::make_unique<nrmi::localSignal0<piVoid>>());
    auto const connect = [&](std::size_t i) {
        signals[i]->connect(nrmi::slot(&receiver, &cReceiver::sltCount));
    };
    a.mAction = [&](nrmi::cConnectable&) { signals[0].reset(), signals[1].reset(), signals[3].reset(); };
    for (std::size_t const i : {0u, 2u})
        connect(i);
    receiver.notifySignalAttached(a);
    for (std::size_t const i : {1u, 0u, 2u, 3u, 2u})
        connect(i);
    receiver.detachAllSignals();
    EXPECT_EQ(log, "a");
    EXPECT_FALSE(signals[2]->isConnected());
}

TEST_F(cConnectableTest, aSlotCallIsItsObjects)
{
    cReceiver receiver, other;
    auto const call = nrmi::slot(&receiver, &cReceiver::sltCount);
    EXPECT_TRUE(receiver == &call);
    EXPECT_FALSE(other == &call);
    EXPECT_EQ(&call.assignedObject(), &receiver);
    std::unique_ptr<nrmi::cAbstractSlotCall0<piVoid>> const connected(call.createConnectedInstance(a));
    connected->call();
    EXPECT_EQ(receiver.miCalls, 1);
    connected->reAssign(&b);
    receiver.detachAllSignals();
    EXPECT_EQ(log, "b");

    receiver.setIndex(7);
    EXPECT_EQ(receiver.index(), 7u);
    EXPECT_EQ(other.index(), 0u);
}

TEST_F(cConnectableTest, aDestroyedSlotCallTakesItsEntryAlong)
{
    cReceiver receiver;
    auto const call = nrmi::slot(&receiver, &cReceiver::sltCount);
    {
        std::unique_ptr<nrmi::cAbstractSlotCall> const first(call.createConnectedInstance(a));
        std::unique_ptr<nrmi::cAbstractSlotCall> const second(call.createConnectedInstance(b));
        auto const copy = call; // a template, not attached
        second->reAssign(nullptr);
    }
    receiver.clear();
    EXPECT_EQ(log, "");
}

} // namespace
