// Connections over the loopback interface beside the plain calls: round trips and a turn of the queue with
// many connections that do nothing, with both ends in this thread, and bulk transfer from another process.
// The counter "ratio" compares the speed with that of the plain calls, which take turns with the connections:
// 1 is the same speed, 2 twice as fast.

#include <cstdlib>
#include <ctime>
#include <deque>
#include <fcntl.h>
#include <memory>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>

#include "nel_core/nce/cCoreExtensionMgr.h"
#include "nel_core/nce/net++/cNetAbstractConnection.h"
#include "nel_core/nce/net++/cNetAbstractIPAddress.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_net/cAbstractTcpFactory.h"

namespace {

typedef nce::cNetAbstractConnection::tBytes tBytes;

constexpr unsigned int kMessage = 64;
constexpr unsigned int kChunk = 65536;
constexpr unsigned int kBatch = 200; // operations between two looks at the clock
constexpr unsigned int kBulkChunks = 256;
constexpr unsigned int kIdle = 1000;

void refuse(bool isWrong)
{
    if (isWrong)
        std::abort();
}

// Two ends of a connection that are plain descriptors.
class cPlainPair {
public:
    cPlainPair()
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto* const name = reinterpret_cast<sockaddr*>(&address);
        socklen_t size = sizeof address;
        int const listener = ::socket(AF_INET, SOCK_STREAM, 0);
        refuse(::bind(listener, name, size) != 0 || ::listen(listener, 1) != 0
               || ::getsockname(listener, name, &size) != 0);
        client = ::socket(AF_INET, SOCK_STREAM, 0);
        refuse(::connect(client, name, size) != 0);
        server = ::accept4(listener, nullptr, nullptr, SOCK_NONBLOCK);
        ::close(listener);
        int const on = 1;
        for (int const fd : {client, server})
            refuse(::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on) != 0);
    }
    cPlainPair(cPlainPair const&) = delete;
    cPlainPair& operator=(cPlainPair const&) = delete;
    ~cPlainPair()
    {
        ::close(client);
        ::close(server);
    }

    int client = -1;
    int server = -1;
};

nnet::cAbstractTcpFactory const& factory()
{
    static auto const* const loaded = [] {
        auto& extensions = npi::system().coreExtensions;
        extensions.load(nucs::cString(NEL_NET_MODULES "/NetTcpIpv4"));
        return dynamic_cast<nnet::cAbstractTcpFactory const*>(extensions.hasExtension("TcpIpv4"));
    }();
    refuse(!loaded);
    return *loaded;
}

// A server; each call connects once and gives one or both ends, scheduled.
class cListener {
public:
    cListener()
    {
        auto const& maker = factory();
        auto const local = npi::system().coreExtensions.createNetAddress("TcpIpv4");
        local->fromString("127.0.0.1");
        mpServer = maker.createServer(*local, nullptr);
        mpServer->listen();
    }

    nstd::tAutoPtr<nce::cNetAbstractConnection> accept()
    {
        for (;;) {
            auto connection = mpServer->connection();
            if (connection) {
                connection->schedule(nullptr);
                return connection;
            }
            npi::cSystem::exec();
        }
    }
    nstd::tAutoPtr<nce::cNetAbstractConnection> connect()
    {
        auto const client = factory().createClient(mpServer->address(), nullptr);
        client->connect(0);
        auto connection = client->waitConnection();
        connection->schedule(nullptr);
        return connection;
    }
    unsigned short port() const
    {
        return static_cast<unsigned short>(mpServer->address().isIPAddress()->port());
    }
    int connectPlainly()
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(port());
        int const fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        refuse(::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0);
        int const on = 1;
        ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        return fd;
    }

private:
    nstd::tAutoPtr<nnet::cAbstractTcpServer> mpServer;
};

// The seconds for which this thread has run: what other processes take does not count.
double processorTime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// Lets both take turns, in batches, and takes the time of `ours`.
template<typename Ours, typename Plain>
void compare(benchmark::State& state, Ours ours, Plain plain)
{
    double ourTime = 0;
    double plainTime = 0;
    for (auto _ : state) {
        double const start = processorTime();
        for (unsigned int i = 0; i < kBatch; ++i)
            ours();
        double const between = processorTime();
        for (unsigned int i = 0; i < kBatch; ++i)
            plain();
        plainTime += processorTime() - between;
        ourTime += between - start;
        state.SetIterationTime(between - start);
    }
    double const count = static_cast<double>(state.iterations()) * kBatch;
    state.counters["each"] = benchmark::Counter(ourTime / count);
    state.counters["plain"] = benchmark::Counter(plainTime / count);
    state.counters["ratio"] = plainTime / ourTime;
}

// Sends a message, and the next one when it is back.
class cEchoEnds : public nrmi::cConnectable {
public:
    explicit cEchoEnds(cListener& listener) : mpClient(listener.connect()), mpServer(listener.accept())
    {
        mpServer->sigDataReceived.connect(nrmi::slot(this, &cEchoEnds::sltRequest));
        mpClient->sigDataReceived.connect(nrmi::slot(this, &cEchoEnds::sltAnswer));
        mpServer->receive(true);
        mpClient->receive(true);
        for (unsigned int i = 0; i < kMessage; ++i)
            maMessage.append(static_cast<char>(i));
    }

    void roundTrip()
    {
        maMessage[0] = static_cast<char>(++miSent);
        miBack = 0;
        mpClient->send(maMessage);
        while (miBack != kMessage)
            npi::cSystem::exec();
    }

    piVoid sltRequest(nce::cNetAbstractConnection& connection, tBytes const& data)
    {
        connection.send(data);
        return piVoid();
    }
    piVoid sltAnswer(nce::cNetAbstractConnection&, tBytes const& data)
    {
        refuse(miBack + data.length() > kMessage || !maMessage.isEqual(data.data(), miBack, data.length()));
        miBack += data.length();
        return piVoid();
    }

private:
    nstd::tAutoPtr<nce::cNetAbstractConnection> mpClient;
    nstd::tAutoPtr<nce::cNetAbstractConnection> mpServer;
    tBytes maMessage;
    unsigned int miSent = 0;
    unsigned int miBack = 0;
};

void plainRoundTrip(cPlainPair const& pair)
{
    char message[kMessage] = {1, 2, 3};
    pollfd table[] = {{pair.client, POLLIN, 0}, {pair.server, POLLIN, 0}};
    refuse(::send(pair.client, message, kMessage, MSG_NOSIGNAL) != kMessage);
    refuse(::poll(table, 2, -1) != 1 || table[1].revents != POLLIN);
    char data[kChunk];
    refuse(::recv(pair.server, data, sizeof data, MSG_DONTWAIT) != kMessage);
    refuse(::send(pair.server, data, kMessage, MSG_NOSIGNAL) != kMessage);
    refuse(::poll(table, 2, -1) != 1 || table[0].revents != POLLIN);
    refuse(::recv(pair.client, data, sizeof data, MSG_DONTWAIT) != kMessage || data[1] != 2);
}

void echo64Bytes(benchmark::State& state)
{
    cListener listener;
    cEchoEnds ends(listener);
    cPlainPair const pair;
    compare(
        state, [&] { ends.roundTrip(); }, [&] { plainRoundTrip(pair); });
}
BENCHMARK(echo64Bytes)->UseManualTime()->Unit(benchmark::kMicrosecond);

// Sends packets of one chunk each, the next one when the last is on its way.
class cBulkSender : public nrmi::cConnectable {
public:
    explicit cBulkSender(nstd::tAutoPtr<nce::cNetAbstractConnection> connection)
        : mpConnection(connection),
          maChunk(kChunk)
    {
        maChunk.fill('x');
        mpConnection->sigPacketSent.connect(nrmi::slot(this, &cBulkSender::sltSent));
    }

    void sendAll()
    {
        miLeft = kBulkChunks - 1;
        mpConnection->sendRef(maChunk);
        while (miLeft != 0 || mpConnection->isTxBusy())
            npi::cSystem::exec();
    }
    piVoid sltSent()
    {
        if (miLeft != 0) {
            --miLeft;
            mpConnection->sendRef(maChunk);
        }
        return piVoid();
    }

private:
    nstd::tAutoPtr<nce::cNetAbstractConnection> mpConnection;
    tBytes maChunk;
    unsigned int miLeft = 0;
};

class cBulkReceiver : public nrmi::cConnectable {
public:
    explicit cBulkReceiver(nstd::tAutoPtr<nce::cNetAbstractConnection> connection) : mpConnection(connection)
    {
        mpConnection->sigDataReceived.connect(nrmi::slot(this, &cBulkReceiver::sltData));
        mpConnection->receive(true);
    }

    void receiveAll()
    {
        for (miReceived = 0; miReceived != kBulkChunks * kChunk;)
            npi::cSystem::exec();
    }
    piVoid sltData(nce::cNetAbstractConnection&, tBytes const& data)
    {
        refuse(data[0] != 'x' || data[data.length() - 1] != 'x');
        miReceived += data.length();
        return piVoid();
    }

private:
    nstd::tAutoPtr<nce::cNetAbstractConnection> mpConnection;
    unsigned int miReceived = 0;
};

void sendPlainly(int fd)
{
    std::vector<char> const chunk(kChunk, 'x');
    for (unsigned int i = 0; i < kBulkChunks; ++i)
        refuse(::send(fd, chunk.data(), kChunk, MSG_NOSIGNAL) != kChunk);
}

void receivePlainly(int fd)
{
    std::vector<char> target(kChunk);
    for (unsigned int received = 0; received != kBulkChunks * kChunk;) {
        ssize_t const count = ::recv(fd, target.data(), kChunk, 0);
        refuse(count <= 0 || target[0] != 'x');
        received += static_cast<unsigned int>(count);
    }
}

// The other process: sends what it is asked for, 'o' over a connection of the library and 'p' over a plain
// one.
[[noreturn]] void serveBulk(int orders, int plain)
{
    unsigned short port = 0;
    refuse(::read(orders, &port, sizeof port) != sizeof port);
    {
        auto const target = npi::system().coreExtensions.createNetAddress("TcpIpv4");
        target->fromString("127.0.0.1");
        target->isIPAddress()->setPort(port);
        auto const client = factory().createClient(*target, nullptr);
        client->connect(0);
        auto connection = client->waitConnection();
        connection->schedule(nullptr);
        cBulkSender sender(connection);
        for (char order = 0; ::read(orders, &order, 1) == 1;)
            order == 'o' ? sender.sendAll() : sendPlainly(plain);
    }
    ::_exit(0);
}

double secondsNow()
{
    timespec time = {};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// From one process to another, beside a loop of blocking send() and one of blocking recv(); the time is that
// of the clock.
void bulk64KiB(benchmark::State& state)
{
    factory();
    cPlainPair const pair;
    refuse(::fcntl(pair.server, F_SETFL, 0) != 0);
    int orders[2];
    refuse(::pipe(orders) != 0);
    pid_t const child = ::fork();
    refuse(child < 0);
    if (child == 0) {
        ::close(orders[1]);
        serveBulk(orders[0], pair.client);
    }
    ::close(orders[0]);
    cListener listener;
    unsigned short const port = listener.port();
    refuse(::write(orders[1], &port, sizeof port) != sizeof port);
    cBulkReceiver receiver(listener.accept());

    double ourTime = 0;
    double plainTime = 0;
    for (auto _ : state) {
        double const start = secondsNow();
        refuse(::write(orders[1], "o", 1) != 1);
        receiver.receiveAll();
        double const between = secondsNow();
        refuse(::write(orders[1], "p", 1) != 1);
        receivePlainly(pair.server);
        plainTime += secondsNow() - between;
        ourTime += between - start;
        state.SetIterationTime(between - start);
    }
    ::close(orders[1]);
    ::waitpid(child, nullptr, 0);
    state.counters["ratio"] = plainTime / ourTime;
    state.SetBytesProcessed(static_cast<long long>(state.iterations()) * kBulkChunks * kChunk);
}
BENCHMARK(bulk64KiB)->UseManualTime()->Unit(benchmark::kMicrosecond);

// One connection among others that receives a message in each turn; its slot sends the one for the next turn,
// so that none waits.
class cCrowd : public nrmi::cConnectable {
public:
    explicit cCrowd(cListener& listener)
    {
        for (unsigned int i = 0; i <= kIdle; ++i) {
            maClients.push_back(listener.connectPlainly());
            mConnections.push_back(listener.accept());
            mConnections.back()->receive(true);
        }
        mConnections.back()->sigDataReceived.connect(nrmi::slot(this, &cCrowd::sltData));
        push();
        npi::cSystem::exec();
    }
    ~cCrowd() override
    {
        mConnections.clear();
        for (int const fd : maClients)
            ::close(fd);
    }

    void turn()
    {
        unsigned int const before = miReceived;
        npi::cSystem::exec();
        refuse(miReceived != before + 1);
    }

    piVoid sltData(nce::cNetAbstractConnection&, tBytes const& data)
    {
        refuse(data.length() != kMessage);
        ++miReceived;
        push();
        return piVoid();
    }

private:
    void push()
    {
        char const message[kMessage] = {};
        refuse(::send(maClients.back(), message, kMessage, MSG_NOSIGNAL) != kMessage);
    }

    std::vector<int> maClients;
    std::deque<nstd::tAutoPtr<nce::cNetAbstractConnection>> mConnections;
    unsigned int miReceived = 0;
};

class cPlainCrowd {
public:
    cPlainCrowd()
    {
        for (unsigned int i = 0; i <= kIdle; ++i) {
            maPairs.push_back(std::make_unique<cPlainPair>());
            maTable.push_back({maPairs.back()->server, POLLIN, 0});
        }
    }

    void turn()
    {
        char message[kMessage] = {};
        refuse(::send(maPairs.back()->client, message, kMessage, MSG_NOSIGNAL) != kMessage);
        refuse(::poll(maTable.data(), maTable.size(), -1) != 1);
        for (auto const& entry : maTable) {
            if (entry.revents != 0)
                refuse(::recv(entry.fd, message, kMessage, MSG_DONTWAIT) != kMessage);
        }
    }

private:
    std::vector<std::unique_ptr<cPlainPair>> maPairs;
    std::vector<pollfd> maTable;
};

void turnWith1000Idle(benchmark::State& state)
{
    rlimit limit = {};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &limit);
    cListener listener;
    cCrowd crowd(listener);
    cPlainCrowd plain;
    compare(
        state, [&] { crowd.turn(); }, [&] { plain.turn(); });
}
BENCHMARK(turnWith1000Idle)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace
