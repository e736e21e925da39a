#include "nel_core/nce/net++/cNetAbstractConnection.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <tuple>

#include "nel_core/std/cBugException.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFakeClock.h"
#include "tests/support/cMemorySocket.h"
#include "tests/support/cQueueFixture.h"
#include "tests/support/expectMessage.h"
#include "tests/support/expectRefusal.h"

namespace {

using nce::cNetAbstractConnection;
using nstd::cRuntimeException;
using ntest::expectMessage;
using ntest::fail;
using tBytes = cNetAbstractConnection::tBytes;
using tFunction = std::function<void()>;

tBytes bytes(std::string const& text)
{
    return tBytes(text.data(), static_cast<unsigned int>(text.size()));
}

std::string text(tBytes const& bytes)
{
    return std::string(bytes.begin(), bytes.end());
}

std::string causeOf(nstd::cAbstractException const& error)
{
    bool outOfMemory = false;
    nstd::tAutoPtr<nstd::cAbstractException> const cause(error.getHistory(outOfMemory));
    return cause ? ntest::messageOf(*cause) : "none";
}

// Writes into a log what a connection emits, and then runs the function of that letter.
class cListener : public nrmi::cConnectable {
public:
    piVoid sltClosed(cNetAbstractConnection&) { return note('c'); }
    piVoid sltInvalidated(cNetAbstractConnection&) { return note('i'); }
    piVoid sltChunk() { return note('k'); }
    piVoid sltPacket() { return note('p'); }
    piVoid sltData(cNetAbstractConnection&, tBytes const& data) { return note('d', text(data)); }
    piVoid sltFrom(cNetAbstractConnection&, tBytes const& data, nce::cNetAbstractAddress const& sender)
    {
        return note('f', text(data) + " " + ntest::text(sender.toString()));
    }
    piVoid sltError(cNetAbstractConnection&, nstd::cAbstractException const& error)
    {
        return note('e', ntest::messageOf(error) + " " + causeOf(error));
    }

    std::string log;
    std::map<char, tFunction> on;
    std::map<char, unsigned int> counts;

private:
    piVoid note(char letter, std::string const& details = "")
    {
        log += letter + (details.empty() ? "" : "(" + details + ")");
        ++counts[letter];
        if (auto const function = on[letter])
            function();
        return piVoid();
    }
};

class cNetAbstractConnectionTest : public ntest::cQueueFixture {
public:
    void SetUp() override
    {
        cQueueFixture::SetUp();
        renew();
    }
    void TearDown() override
    {
        connection.reset();
        cQueueFixture::TearDown();
    }
    void renew()
    {
        connection.reset();
        wire = ntest::cWire();
        listener = std::make_unique<cListener>();
        connection = std::make_unique<cNetAbstractConnection>(
            nstd::tAutoPtr<nce::cNetAbstractSocket>(new ntest::cMemorySocket(wire)));
        connection->sigClosed.connect(nrmi::slot(listener.get(), &cListener::sltClosed));
        connection->sigInvalidated.connect(nrmi::slot(listener.get(), &cListener::sltInvalidated));
        connection->sigDataReceived.connect(nrmi::slot(listener.get(), &cListener::sltData));
        connection->sigChunkSent.connect(nrmi::slot(listener.get(), &cListener::sltChunk));
        connection->sigPacketSent.connect(nrmi::slot(listener.get(), &cListener::sltPacket));
        connection->schedule(queue.get());
    }
    void turn(unsigned int count = 1)
    {
        for (; count != 0; --count) {
            if (wire.socket)
                wire.socket->poll();
            queue->process();
        }
    }
    void sendWhileStuck(std::string const& packet)
    {
        wire.accept = 0;
        connection->send(bytes(packet));
    }
    void listenToAll()
    {
        connection->sigDataReceivedFrom().connect(nrmi::slot(listener.get(), &cListener::sltFrom));
        connection->errorHandler().connect(nrmi::slot(listener.get(), &cListener::sltError));
    }
    void onTransfer(tFunction const& function) { wire.onRead = wire.onWrite = function; }

    ntest::cWire wire;
    std::unique_ptr<cListener> listener;
    std::unique_ptr<cNetAbstractConnection> connection;
};

TEST_F(cNetAbstractConnectionTest, aPacketGoesOutInChunks)
{
    struct cRow {
        unsigned int size, accept, maxChunk;
        std::vector<unsigned> offered;
        std::string log; ///< of send() and of the turn after it
    };
    std::vector<unsigned> const ones(1003, 1); // more than the rounds of a step
    for (auto const& row :
         {cRow{10, ~0u, 64, {10}, "kp|"}, cRow{0, ~0u, 64, {}, "p|"},
          cRow{130, ~0u, 64, {64, 64, 2}, "kkkp|"}, cRow{250, 100, 65536, {250, 150, 50}, "kkkp|"},
          cRow{1003, 1, 1, ones, std::string(1000, 'k') + "|kkkp"}}) {
        renew();
        wire.accept = row.accept;
        wire.maxChunk = row.maxChunk;
        connection->send(bytes(std::string(row.size, 'x')));
        listener->log += '|';
        turn();
        EXPECT_EQ(listener->log, row.log);
        EXPECT_EQ(wire.offered, row.offered);
        EXPECT_EQ(wire.outgoing, std::string(row.size, 'x'));
        EXPECT_FALSE(connection->isTxBusy() || wire.socket->writableWork().isStarted());
    }
}

TEST_F(cNetAbstractConnectionTest, onePacketAtATime)
{
    std::vector<unsigned> left;
    listener->on['k'] = [&] { left.push_back(connection->txBytesLeft()); };
    sendWhileStuck(std::string(250, 'a'));
    tBytes other = bytes("b");
    char const* const busy = "Unable to send packet - transmitter is busy!";
    expectMessage<cRuntimeException>([&] { connection->send(other); }, busy);
    expectMessage<cRuntimeException>([&] { connection->sendSwap(other); }, busy);
    expectMessage<cRuntimeException>([&] { connection->sendRef(other); }, busy);
    wire.accept = 100;
    turn();
    EXPECT_EQ(left, (std::vector<unsigned>{150, 50, 0}));
    connection->sendSwap(other);
    listener->on['k'] = [&] { // a slot replaces the packet, which is not reported then
        listener->on.clear();
        connection->clearTx();
        connection->sendRef(other);
    };
    connection->send(bytes(std::string(101, 'c')));
    EXPECT_EQ(listener->log, "kkkpkpkkkkp");
    EXPECT_EQ(wire.outgoing, std::string(250, 'a') + "b" + std::string(100, 'c') + std::string(250, 'a'));
}

TEST_F(cNetAbstractConnectionTest, slotsThatSendOnDoNotDeepenTheStack)
{
    for (std::string const packet : {"x", ""}) {
        renew();
        unsigned int depth = 0, deepest = 0;
        listener->on['p'] = [&] {
            deepest = std::max(deepest, ++depth);
            if (listener->counts['p'] < 100)
                connection->send(bytes(packet));
            --depth;
        };
        connection->send(bytes(packet));
        EXPECT_TRUE(connection->isTxBusy());
        turn(10);
        EXPECT_EQ(listener->counts['p'], 100u);
        EXPECT_EQ(deepest, 17u);
    }
}

TEST_F(cNetAbstractConnectionTest, fillsTheTargetOfAnExplicitReceive)
{
    std::deque<std::string> slow{"ab"};
    slow.resize(11);
    slow.push_back("cd");
    struct cRow {
        unsigned int size;
        std::deque<std::string> pieces;
        std::string log; ///< of two turns
    };
    for (auto const& row : {cRow{8, {"abc", "defgh"}, "d(abcdefgh)|"}, cRow{3, {"abcdef"}, "d(abc)|"},
                            cRow{4, slow, "|d(abcd)"}, cRow{0, {"abc"}, "|"}}) {
        renew();
        tBytes target(row.size);
        wire.incoming = row.pieces;
        connection->receive(target);
        turn();
        listener->log += '|';
        turn();
        EXPECT_EQ(listener->log, row.log);
    }
}

TEST_F(cNetAbstractConnectionTest, anExplicitReceiveShrinksAndIsTakenBack)
{
    tBytes target(8);
    wire.incoming = {"abc"};
    connection->receive(target);
    turn();
    target.truncate(4);
    wire.incoming = {"wxyz"};
    connection->waitRx(0);
    connection->receive(target);
    connection->clearRx();
    EXPECT_FALSE(wire.socket->readableWork().isStarted());
    connection->waitRx(0); // nothing is pending
    connection->receive(true);
    connection->receive(target);
    connection->clearRx();
    wire.incoming = {"rest", "more"};
    turn();
    connection->receive(false);
    turn();
    EXPECT_EQ(listener->log, "d(wxyz)d(rest)");
}

TEST_F(cNetAbstractConnectionTest, deliversWhatArrivesWithItsSender)
{
    listenToAll();
    // The slot reads on, from another sender, before the first one is told.
    listener->on['d'] = [&] {
        listener->on.clear();
        wire.sender = "other";
        connection->tryTransfer();
    };
    wire.incoming = {"one", "two", "three"};
    connection->receive(true);
    turn(2);
    EXPECT_EQ(listener->log, "d(one)d(two)f(two other)pf(one sender)d(three)f(three other)");

    // The slot for the first report ends the life of the target.
    auto target = std::make_unique<tBytes>(3u);
    listener->on['d'] = [&] { target.reset(); };
    listener->log.clear();
    wire.incoming = {"end"};
    connection->receive(*target);
    turn();
    EXPECT_EQ(listener->log, "d(end)f(end other)");
}

TEST_F(cNetAbstractConnectionTest, anInvalidConnectionRefuses)
{
    tBytes data = bytes("abc");
    connection->invalidate();
    connection->invalidate();
    EXPECT_EQ(wire.closes, 2u);
    std::string const closed = "Network connection closed unexpectedly";
    expectMessage<cRuntimeException>([&] { connection->sendRef(data); }, closed + " (1)!");
    expectMessage<cRuntimeException>([&] { connection->send(data); }, closed + " (2)!");
    expectMessage<cRuntimeException>([&] { connection->sendSwap(data); }, closed + " (3)!");
    expectMessage<cRuntimeException>([&] { connection->receive(data); }, closed + "! (4)");
    expectMessage<cRuntimeException>([&] { connection->sltSocketWritable(); }, closed + "! (w)");
    wire.incoming = {"abc"};
    wire.isClosed = true;
    connection->receive(true);
    connection->sltSocketReadable();
    connection->sltSocketException();
    EXPECT_FALSE(connection->canRead() || connection->toInvalidateLater() || connection->isTxBusy());
    EXPECT_EQ(wire.reads + wire.exceptions, 0u);
    EXPECT_EQ(text(data) + listener->log, "abci");
    ntest::expectAssertion([] { cNetAbstractConnection(nstd::tAutoPtr<nce::cNetAbstractSocket>()); },
                           "mpSocket.get()", "nel_core/nce/net++/cNetAbstractConnection");
}

TEST_F(cNetAbstractConnectionTest, endsOnceThoughSlotsFail)
{
    connection->sltSocketException();
    EXPECT_EQ(wire.exceptions, 1u);
    sendWhileStuck("lost");
    tBytes target(4);
    connection->receive(true);
    connection->receive(target);
    wire.isClosed = true;
    listener->on['c'] = [] { fail("slot"); };
    expectMessage<cRuntimeException>([&] { connection->sltSocketException(); }, "slot");
    connection->sltSocketException();
    EXPECT_TRUE(connection->toInvalidateLater() && !connection->isTxBusy());
    wire.incoming = {"abcd"};
    listener->on['i'] = [&] {
        connection->invalidate();
        sendWhileStuck("refused");
    };
    expectMessage<cRuntimeException>([&] { turn(); }, "Network connection closed unexpectedly (2)!");
    EXPECT_TRUE(connection->isInvalid());
    EXPECT_EQ(wire.reads, 0u);
    connection.reset();
    EXPECT_EQ(listener->log, "ci");
}

TEST_F(cNetAbstractConnectionTest, aPendingPacketDrainsBeforeTheInvalidation)
{
    ntest::cFakeClock clock;
    for (bool const isStuck : {false, true}) {
        renew();
        wire.onWrite = [&, n = 0u]() mutable { wire.accept = ++n == 2 ? 1 : 0; };
        sendWhileStuck("12");
        connection->invalidateLater();
        turn();
        EXPECT_LE(lastTimeout(), 10u);
        clock.advance(29900);
        connection->sltSocketWritable();
        for (long long const step : {0, 29900, -3600000, 11, 29900}) { // a clock set back tells nothing
            clock.advance(step);
            turn();
            EXPECT_EQ(connection->txBytesLeft(), 1u);
        }
        wire.onWrite = nullptr;
        wire.accept = isStuck ? 0 : 1;
        clock.advance(200);
        turn(2);
        EXPECT_TRUE(connection->isInvalid() && !connection->isTxBusy());
        EXPECT_EQ(listener->log, isStuck ? "ki" : "kkpi");
    }
}

TEST_F(cNetAbstractConnectionTest, waitsDriveTheSocketUntilItsEnd)
{
    wire.incoming = {"abc", "", "defgh"};
    tBytes target(8);
    connection->receive(target);
    connection->waitRx(1000);
    wire.onWrite = [&, n = 0]() mutable { wire.accept = ++n % 3 == 0 ? 1 : 0; };
    sendWhileStuck("abc");
    connection->flushTx(0);
    EXPECT_EQ(listener->log, "d(abcdefgh)kkkp");

    ntest::cFakeClock clock;
    std::string const late = "Transfer timeout after 20 milliseconds!";
    std::string const remote = "Remote connection has been closed unexpectedly!";
    std::string const request =
        "Unable to complete request - remote connection has been closed unexpectedly!";
    std::string const dead = "Network connection closed unexpectedly! (";
    std::tuple<tFunction, std::string, std::string> const rows[] = {
        {[&] { onTransfer([&] { clock.advance(6); }); }, late, "none"},
        {[&] { connection->invalidate(); }, remote, dead},
        {[&] { onTransfer([&] { connection->invalidate(); }); }, request, dead},
        {[&] { wire.isClosed = true; }, request, dead},
        {[&] { onTransfer([] { fail("socket"); }); }, request, "socket"},
    };
    for (auto const& [prepare, message, cause] : rows) {
        for (auto const wait : {&cNetAbstractConnection::waitRx, &cNetAbstractConnection::flushTx}) {
            renew();
            connection->receive(target);
            sendWhileStuck("abc");
            prepare();
            auto const error = ntest::raisedBy<cRuntimeException>([&] { ((*connection).*wait)(20); });
            ASSERT_TRUE(error.has_value());
            EXPECT_EQ(ntest::messageOf(*error), message);
            EXPECT_EQ(causeOf(*error).substr(0, cause.size()), cause);
            EXPECT_EQ(listener->counts['c'], wire.isClosed ? 1u : 0u);
        }
    }
}

TEST_F(cNetAbstractConnectionTest, failuresOfTheSocketGoToTheHandler)
{
    sendWhileStuck("abc");
    connection->receive(true);
    wire.incoming = {"x"};
    onTransfer([] { fail("socket"); });
    expectMessage<cRuntimeException>([&] { turn(); }, "socket"); // nobody takes it
    EXPECT_FALSE(connection->isTxBusy());
    expectMessage<cRuntimeException>([&] { connection->sltException(cRuntimeException(), false); },
                                     "Network connection error!");
    listenToAll();
    listener->on['e'] = [&] { connection->invalidateLater(); };
    turn(2);
    EXPECT_EQ(listener->log, "e(Network connection error! socket)i");
}

TEST_F(cNetAbstractConnectionTest, aFailingSendLeavesThePacketUnlessItWasLent)
{
    tBytes data = bytes("abc");
    onTransfer([] { fail("socket"); });
    expectMessage<cRuntimeException>([&] { connection->sendRef(data); }, "socket");
    EXPECT_FALSE(connection->isTxBusy());
    expectMessage<cRuntimeException>([&] { connection->send(data); }, "socket");
    EXPECT_EQ(connection->txBytesLeft(), 3u);

    onTransfer(nullptr);
    connection->clearTx();
    listener->on['p'] = [&] { // its own packet stays when it fails
        sendWhileStuck("567");
        fail("slot");
    };
    expectMessage<cRuntimeException>([&] { connection->sendRef(data); }, "slot");
    wire.accept = ~0u;
    wire.excess = 4;
    std::string const bug = "Bug in socket implementation: Returned size ";
    expectMessage<nstd::cBugException>([&] { connection->sltSocketWritable(); },
                                       bug + "(7) > given size (3)!");
    EXPECT_EQ(connection->txBytesLeft(), 3u);
    connection->receive(data);
    expectMessage<nstd::cBugException>([&] { connection->sltSocketReadable(); },
                                       bug + "(4) > given size (3)!");
    connection->invalidate();
    connection->sltDelayedSocketDestroy(); // waits no more, though the packet is pending
    EXPECT_FALSE(connection->toInvalidateLater());
}

// Slots and the test do whatever they like. Each packet is of a character of its own, the next one.
TEST_F(cNetAbstractConnectionTest, nothingIsMixedUpByRandomSlots)
{
    ntest::cDebugRecorder const mute;
    ntest::cFakeClock clock;
    std::mt19937 random(20240607);
    std::list<tBytes> targets, lent;
    char next = 0;
    tFunction const acts[] = {
        [&] { connection.reset(); },
        [&] { connection->invalidate(); },
        [&] { connection->invalidateLater(); },
        [&] { connection->clearTx(); },
        [&] { connection->clearRx(); },
        [&] { connection->tryTransfer(); },
        [&] { connection->receive(random() % 2 == 0); },
        [&] { connection->receive(targets.emplace_back(random() % 9u)); },
        [&] { connection->waitRx(1); },
        [&] { wire.accept = 3, connection->flushTx(0); },
        [&] { wire.accept = random() % 4, wire.incoming.emplace_back(random() % 9, 'r'); },
        [&] { connection->send(bytes(std::string(5, ++next))); },
        [&] { connection->sendRef(lent.emplace_back(bytes(std::string(5, ++next)))); },
    };
    auto const attempt = [&](tFunction const& act) {
        try {
            if (connection)
                act();
        } catch (nstd::cAbstractException const&) {
        }
    };
    std::set<char> deleters; // the letters whose slots have deleted a connection
    for (unsigned int i = 0; i < 500; ++i) {
        renew();
        listenToAll();
        connection->receive(true);
        next = 0;
        unsigned int budget = 40; // of what slots do
        wire.onRead = wire.onWrite = [&] {
            clock.advance(1); // waits end at the same place on every machine
            wire.isClosed = wire.isClosed || random() % 50 == 0;
            if (random() % 5 == 0)
                fail("socket");
        };
        for (char const letter : std::string("cidfkpe"))
            listener->on[letter] = [&, letter] {
                if (!connection || budget == 0 || --budget % 2 == 0)
                    return;
                attempt(acts[random() % 4 == 0 ? 0 : random() % std::size(acts)]);
                if (!connection)
                    deleters.insert(letter);
                if (random() % 8 == 0)
                    fail("slot");
            };
        for (unsigned int step = 0; step < 40; ++step) {
            attempt(acts[random() % std::size(acts)]);
            attempt([&] { turn(); });
        }
        connection.reset();
        EXPECT_TRUE(listener->counts['i'] == 1 && listener->counts['c'] <= 1);
        EXPECT_TRUE(std::is_sorted(wire.outgoing.begin(), wire.outgoing.end()));
        for (char c = 1; c <= next; ++c)
            EXPECT_LE(std::count(wire.outgoing.begin(), wire.outgoing.end(), c), 5);
    }
    EXPECT_EQ(deleters.size(), 7u);
}

} // namespace
