#include <cerrno>
#include <filesystem>
#include <memory>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "nel_core/nce/cCoreExtensionMgr.h"
#include "nel_core/nce/net++/cNetAbstractIPv4Address.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOSErrorException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_net/cAbstractTcpFactory.h"
#include "tests/support/cFailingCalls.h"
#include "tests/support/cFakeClock.h"
#include "tests/support/cMemorySocket.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/expectMessage.h"
#include "tests/support/modules.h"

#ifndef NEL_NET_MODULES
#define NEL_NET_MODULES NEL_MODULE_DIR
#endif

namespace {

using nce::cNetAbstractAddress;
using nce::cNetAbstractConnection;
using cCalls = ntest::cFailingCalls;
using cBytes = cNetAbstractConnection::tBytes;

template<typename T>
std::unique_ptr<T> owned(nstd::tAutoPtr<T> made)
{
    return std::unique_ptr<T>(made.release());
}

std::string pattern(std::size_t size)
{
    std::string text(size, ' ');
    for (std::size_t i = 0; i < size; ++i)
        text[i] = static_cast<char>(i * 7 + i / 251);
    return text;
}

// A connection, and what its signals have told.
class cEnd : public nrmi::cConnectable {
public:
    void take(nstd::tAutoPtr<cNetAbstractConnection> made)
    {
        connection = owned(made);
        connection->sigDataReceived.connect(nrmi::slot(this, &cEnd::sltData));
        connection->sigPacketSent.connect(nrmi::slot(this, &cEnd::sltSent));
        connection->sigClosed.connect(nrmi::slot(this, &cEnd::sltClosed));
        connection->sigInvalidated.connect(nrmi::slot(this, &cEnd::sltInvalidated));
        connection->errorHandler().connect(nrmi::slot(this, &cEnd::sltError));
        connection->schedule(nullptr);
        received.clear();
        log.clear();
    }
    void send(std::string const& text)
    {
        connection->send(cBytes(text.data(), static_cast<unsigned int>(text.size())));
    }

    piVoid sltData(cNetAbstractConnection&, cBytes const& data)
    {
        received.append(data.data(), data.length());
        return note(received.size() == data.length() ? "d" : "");
    }
    piVoid sltSent() { return note("s"); }
    piVoid sltClosed(cNetAbstractConnection&) { return note("c"); }
    piVoid sltInvalidated(cNetAbstractConnection&) { return note("i"); }
    piVoid sltError(cNetAbstractConnection&, nstd::cAbstractException const&)
    {
        connection->invalidateLater();
        return note("e");
    }

    std::unique_ptr<cNetAbstractConnection> connection;
    std::string received;
    std::string log; ///< first data, packet sent, closed, invalidated, error

private:
    piVoid note(char const* event)
    {
        log += event;
        return piVoid();
    }
};

// Connects a descriptor of the test's own to this host, negative when that fails.
int rawConnection(unsigned int port)
{
    sockaddr_in name = {};
    name.sin_family = AF_INET;
    name.sin_port = htons(static_cast<unsigned short>(port));
    name.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int const fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    return ::connect(fd, reinterpret_cast<sockaddr*>(&name), sizeof name) == 0 ? fd : -1;
}

class cTcpIpv4Test : public ntest::cSystemFixture, public nrmi::cConnectable {
protected:
    void SetUp() override
    {
        cSystemFixture::SetUp();
        miDescriptors = openDescriptors();
        mNudge.start(5, npi::cWork::Periodic); // no turn waits longer
        npi::schedule(mNudge);
        npi::system().coreExtensions.load(nucs::cString(NEL_NET_MODULES "/NetTcpIpv4"));
        factory = dynamic_cast<nnet::cAbstractTcpFactory const*>(
            npi::system().coreExtensions.hasExtension("TcpIpv4"));
        makeServer(*address("127.0.0.1"));
    }
    void TearDown() override
    {
        here.connection.reset();
        there.connection.reset();
        client.reset();
        server.reset();
        npi::system().coreExtensions.clear();
        EXPECT_FALSE(ntest::isMapped(NEL_NET_MODULES "/libNetTcpIpv4.so"));
        EXPECT_EQ(openDescriptors(), miDescriptors);
        cSystemFixture::TearDown();
    }

    static std::unique_ptr<cNetAbstractAddress> address(char const* text)
    {
        auto made = owned(npi::system().coreExtensions.createNetAddress("TcpIpv4"));
        made->fromString(text);
        return made;
    }
    // A server that listens, and a client for it.
    void makeServer(cNetAbstractAddress const& at)
    {
        server = owned(factory->createServer(at, nullptr));
        server->sigConnectionRequest.connect(nrmi::slot(this, &cTcpIpv4Test::sltRequest));
        server->sigConnected.connect(nrmi::slot(this, &cTcpIpv4Test::sltConnected));
        server->listen();
        client = owned(factory->createClient(server->address(), nullptr));
        client->sigConnected.connect(nrmi::slot(this, &cTcpIpv4Test::sltClient));
    }
    unsigned int port() const { return server->address().isIPAddress()->port(); }
    piVoid sltRequest(cNetAbstractAddress const&, bool& accept)
    {
        accept = ++requests != refused;
        return onRequest();
    }
    piVoid sltConnected(cNetAbstractAddress const&)
    {
        ++connected;
        return onConnected();
    }
    piVoid sltClient() { return onClient(); }
    // Turns the queue until something has happened; false when that does not come.
    template<typename Done>
    static bool turnUntil(Done done)
    {
        for (unsigned int i = 0; i < 2000 && !done(); ++i)
            npi::cSystem::exec();
        return done();
    }
    static bool turnUntilLog(cEnd const& end, char const* log)
    {
        return turnUntil([&] { return end.log == log; });
    }
    // Connects the two ends.
    bool join(std::function<void()> const& eachTurn = [] {})
    {
        connected = 0;
        client->connect(0);
        if (!turnUntil([&] { return eachTurn(), client->isConnected() && connected != 0; }))
            return false;
        here.take(client->connection());
        there.take(server->connection());
        return true;
    }

    nnet::cAbstractTcpFactory const* factory = nullptr;
    unsigned int requests = 0, refused = 0, connected = 0;
    std::function<piVoid()> onRequest = [] { return piVoid(); }, onConnected = onRequest,
                            onClient = onRequest;
    std::unique_ptr<nnet::cAbstractTcpServer> server;
    std::unique_ptr<nce::cNetAbstractClient> client;
    cEnd here, there;

private:
    static std::ptrdiff_t openDescriptors()
    {
        std::filesystem::directory_iterator const all("/proc/self/fd");
        return std::distance(begin(all), end(all));
    }

    npi::cWork mNudge;
    std::ptrdiff_t miDescriptors = 0;
};

TEST_F(cTcpIpv4Test, anAddressIsFourBytesAndAPort)
{
    auto const one = address("192.168.0.1:8080");
    auto& ip = dynamic_cast<nce::cNetAbstractIPv4Address&>(*one);
    auto const copy = owned(one->clone());
    EXPECT_TRUE(copy->isEqual(*one));
    copy->isIPAddress()->setPort(65535);
    EXPECT_FALSE(copy->isEqual(*one));
    EXPECT_FALSE(one->isEqual(ntest::cNamedAddress("foreign")));
    ntest::raisedBy<nstd::cOutOfRangeException>([&] { ip.setPort(65536); });
    ntest::raisedBy<nstd::cOutOfRangeException>([&] { ip.setIPv4(0, 65536); });
    EXPECT_EQ(ntest::text(ip.toString(true)), "192.168.0.1:8080");
    ip.setIPv4(0x0100007F, 1);
    EXPECT_EQ(ntest::text(ip.toString(true)), "127.0.0.1:1");
    ip.clear();
    EXPECT_TRUE(ip.isNull());
    ntest::raisedBy<nstd::cBugException>(
        [&] { owned(factory->createServer(ntest::cNamedAddress("foreign"), nullptr)); });
    ntest::raisedBy<nstd::cBugException>(
        [&] { owned(factory->createClient(ntest::cNamedAddress("foreign"), nullptr)); });
}

TEST_F(cTcpIpv4Test, everyByteComesBackInOrder)
{
    ASSERT_TRUE(join());
    auto const sent = pattern(1 << 20);
    here.connection->receive(true);
    there.connection->receive(true);
    here.send(sent);
    std::size_t echoed = 0;
    EXPECT_TRUE(turnUntil([&] {
        if (there.received.size() > echoed && !there.connection->isTxBusy()) {
            there.send(there.received.substr(echoed));
            echoed = there.received.size();
        }
        return here.received.size() >= sent.size();
    }));
    EXPECT_TRUE(here.received == sent);
}

TEST_F(cTcpIpv4Test, anExplicitReceiveTakesExactlyItsSize)
{
    ASSERT_TRUE(join());
    cBytes target(8);
    there.connection->receive(target);
    here.send("abc");
    EXPECT_TRUE(turnUntil([&] { return there.connection->canRead(); }));
    here.send("defghij");
    EXPECT_TRUE(turnUntilLog(there, "d"));
    EXPECT_EQ(there.received, "abcdefgh");
}

TEST_F(cTcpIpv4Test, whatCameBeforeTheEndIsDeliveredFirst)
{
    ASSERT_TRUE(join());
    auto const sent = pattern(8 << 20); // more than the system's buffers
    here.send(sent);
    EXPECT_TRUE(here.connection->isTxBusy());
    here.connection->invalidateLater();
    there.connection->receive(true);
    EXPECT_TRUE(turnUntilLog(here, "si"));
    EXPECT_TRUE(turnUntilLog(there, "dci"));
    EXPECT_TRUE(there.received == sent);
    for (auto const& work : npi::system().workQueue.jobs())
        EXPECT_FALSE(work && work->hasAIOData() && work->name().beginsWith("tcp exc", 7));
}

TEST_F(cTcpIpv4Test, aResetIsNoticedWithoutReceiving)
{
    int const raw = rawConnection(port());
    ASSERT_TRUE(turnUntil([&] { return connected == 1; }));
    there.take(server->connection());
    ::send(raw, "x", 1, 0);
    EXPECT_TRUE(turnUntil([&] { return there.connection->canRead(); }));
    linger const now = {1, 0};
    ::setsockopt(raw, SOL_SOCKET, SO_LINGER, &now, sizeof now);
    ::close(raw);
    EXPECT_TRUE(turnUntilLog(there, "ci"));
}

TEST_F(cTcpIpv4Test, aRefusedConnectCanBeTriedAgain)
{
    auto const bound = owned(server->address().clone());
    ASSERT_TRUE(join());
    here.connection->receive(true);
    there.connection->invalidate(); // this end keeps the port for a while
    EXPECT_TRUE(turnUntilLog(here, "ci"));
    server->close();
    for (unsigned int i = 0; i < 5; ++i) { // more than a work may fail in a row
        client->connect(0);
        ntest::raisedBy<nstd::cBugException>([&] { client->connect(0); });
        auto const refusal = ntest::raisedBy<nstd::cOSErrorException>(
            [&] { i == 0 ? client->processConnect() : static_cast<void>(turnUntil([] { return false; })); });
        EXPECT_TRUE(refusal && refusal->operation() == "connect" && refusal->osErrorCode() == ECONNREFUSED);
    }
    char const* const closed = "Network connection closed unexpectedly! (c)";
    ntest::expectMessage<nstd::cRuntimeException>([&] { owned(client->connection()); }, closed);
    ntest::expectMessage<nstd::cRuntimeException>([&] { client->processConnect(); }, closed);

    makeServer(*bound);
    auto const second = owned(factory->createServer(*bound, nullptr));
    auto const error = ntest::raisedBy<nstd::cOSErrorException>([&] { second->listen(); });
    EXPECT_TRUE(error && error->operation() == "bind" && !second->isListening());
    EXPECT_TRUE(join());
}

TEST_F(cTcpIpv4Test, aConnectThatNobodyAnswersEndsInTime)
{
    server->close();
    server->setBacklog(0);
    server->listen();
    client = owned(factory->createClient(server->address(), nullptr));
    int const first = rawConnection(port()); // fills the system's queue: what follows is dropped
    std::string const text = "Timeout while establish network connection to 127.0.0.1!";
    client->connect(20);
    ntest::expectMessage<nstd::cRuntimeException>([&] { owned(client->waitConnection()); }, text);
    client->connect(20);
    ntest::expectMessage<nstd::cRuntimeException>([&] { turnUntil([] { return false; }); }, text);
    client->connect(0); // the former attempt has ended
    ::close(first);
}

TEST_F(cTcpIpv4Test, theServerDecidesWhoConnects)
{
    server->setMaxPending(1);
    refused = 1;
    char byte;
    int raws[4];
    for (int& raw : raws)
        raw = rawConnection(port());
    for (unsigned int i : {0u, 2u, 3u})
        EXPECT_TRUE(turnUntil([&] { return ::recv(raws[i], &byte, 1, MSG_DONTWAIT) == 0; })) << i;
    EXPECT_EQ(::recv(raws[1], &byte, 1, MSG_DONTWAIT), -1);
    EXPECT_EQ(requests, 2u); // nobody is asked while the queue is full
    there.take(server->connection());
    EXPECT_FALSE(server->connection());
    ::close(raws[0]);
    raws[0] = rawConnection(port());
    EXPECT_TRUE(turnUntil([&] { return connected == 2; }));
    server->close(); // with the one that nobody has asked for
    EXPECT_EQ(::recv(raws[0], &byte, 1, MSG_DONTWAIT), 0);
    EXPECT_FALSE(there.connection->isInvalid());
    for (int const raw : raws)
        ::close(raw);
}

TEST_F(cTcpIpv4Test, slotsMayDeleteWhoeverCallsThem)
{
    std::function<piVoid()> const nothing = onClient, drop = [&] { return server.reset(), piVoid(); },
                                  close = [&] { return server->close(), piVoid(); };
    onClient = [&] { return client.reset(), piVoid(); };
    for (auto const& [request, connection] :
         {std::pair(drop, close), std::pair(close, drop), std::pair(nothing, drop)}) {
        onRequest = request;
        onConnected = connection;
        makeServer(*address("127.0.0.1"));
        client->connect(1000);
        EXPECT_TRUE(turnUntil([&] { return !client && (!server || !server->isListening()); }));
    }
    onConnected = nothing;
    makeServer(*address("127.0.0.1"));
    client->connect(1000);
    EXPECT_FALSE(client->waitConnection());
    EXPECT_FALSE(client);
}

struct cFault {
    cCalls::Call call;
    int code;
    char const* log = "";
};

cFault const kPassingFaults[] = {
    {cCalls::clAccept, EINTR},        {cCalls::clAccept, ECONNABORTED}, {cCalls::clAccept, EAGAIN},
    {cCalls::clAccept, EMFILE},       {cCalls::clRecv, EINTR},          {cCalls::clRecv, EAGAIN},
    {cCalls::clRecv, cCalls::kShort}, {cCalls::clSend, EINTR},          {cCalls::clSend, EAGAIN},
    {cCalls::clSend, cCalls::kShort}, {cCalls::clPoll, EINTR},
};

TEST_F(cTcpIpv4Test, passingFaultsLoseNothing)
{
    auto const sent = pattern(300);
    for (auto const& fault : kPassingFaults) {
        SCOPED_TRACE(testing::Message() << fault.call << ": " << fault.code);
        ntest::cFakeClock clock;
        bool hasCome = false;
        {
            auto const mode = fault.code == cCalls::kShort ? cCalls::moAlways : cCalls::moOnce;
            cCalls const calls(fault.call, 1, fault.code, mode);
            unsigned int turns = 0;
            // The pause after a shortage is not over within a few turns.
            if (join([&] { ++turns > 5 ? clock.advance(250) : void(); })) {
                here.connection->receive(true);
                there.send(sent);
                turnUntil([&] { return here.received.size() >= sent.size(); });
            }
            hasCome = calls.hasCome() && (fault.code != EMFILE || turns > 5);
        }
        EXPECT_TRUE(hasCome);
        EXPECT_TRUE(here.received == sent);
    }
}

// Only what is no peer's fault is an error.
cFault const kLosses[] = {
    {cCalls::clRecv, ECONNRESET, "sci"},   {cCalls::clRecv, ETIMEDOUT, "sci"},
    {cCalls::clRecv, EHOSTUNREACH, "sci"}, {cCalls::clRecv, EIO, "sei"},
    {cCalls::clSend, EPIPE, "ci"},         {cCalls::clSend, ECONNRESET, "ci"},
};

TEST_F(cTcpIpv4Test, aLostPeerIsToldAsAnEnd)
{
    for (auto const& fault : kLosses) {
        SCOPED_TRACE(testing::Message() << fault.call << ": " << fault.code);
        ASSERT_TRUE(join());
        here.connection->receive(true);
        there.send("x");
        {
            cCalls const calls(fault.call, 1, fault.code, cCalls::moAlways);
            here.send("y");
            turnUntilLog(here, fault.log);
        }
        EXPECT_EQ(here.log, fault.log);
    }
}

} // namespace
