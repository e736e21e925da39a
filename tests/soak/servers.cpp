#include "servers.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <dirent.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

#include "cEchoServer.h"
#include "cEndSignals.h"
#include "nel_core/nce/net++/cNetAbstractIPAddress.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cTime.h"
#include "nel_core/ucs/cString.h"
#include "tcp.h"

namespace {

constexpr unsigned int kInterval = 1000;    // milliseconds
constexpr unsigned int kWarmUp = 10;        // seconds
constexpr unsigned int kLinesEvery = 10;    // seconds
constexpr unsigned int kMemorySlack = 1024; // KiB that may come and go with the bad peers
constexpr unsigned int kEnding = 10;        // seconds for the connections to end

unsigned long long residentKiB()
{
    unsigned long long total = 0;
    unsigned long long resident = 0;
    std::FILE* const file = std::fopen("/proc/self/statm", "re");
    if (!file || std::fscanf(file, "%llu %llu", &total, &resident) != 2)
        resident = 0;
    if (file)
        std::fclose(file);
    return resident * static_cast<unsigned long long>(::sysconf(_SC_PAGESIZE)) / 1024;
}

unsigned int openDescriptors()
{
    unsigned int count = 0;
    DIR* const directory = ::opendir("/proc/self/fd");
    while (directory && ::readdir(directory))
        ++count;
    if (directory)
        ::closedir(directory);
    return count;
}

void tellPort(int pipe, unsigned int port)
{
    auto const told = static_cast<unsigned short>(port);
    static_cast<void>(!::write(pipe, &told, sizeof told));
    ::close(pipe);
}

// Looks at the process once a second.
class cMonitor : public nrmi::cConnectable {
public:
    cMonitor(cEchoServer const& server, unsigned int connections, unsigned int warmUp)
        : mServer(server),
          miConnections(connections),
          miWarmUp(warmUp)
    {
        mWork.setName("monitor");
        mWork.sigAction.connect(nrmi::slot(this, &cMonitor::sltLook));
        mWork.start(kInterval, npi::cWork::Periodic);
        npi::schedule(mWork);
    }

    piVoid sltLook()
    {
        if (mbFinished || (miSeconds == 0 && mServer.open() < miConnections))
            return piVoid();
        auto const resident = residentKiB();
        if (++miSeconds <= miWarmUp)
            miFlat = std::max(miFlat, resident);
        else
            miPeak = std::max(miPeak, resident);
        if (miSeconds % kLinesEvery == 0)
            show(resident);
        return piVoid();
    }

    /// What follows does not count; the loop goes on to turn once a second.
    void finish() { mbFinished = true; }
    /// Whether the memory was watched, and did not grow.
    bool isFlat() const { return miPeak != 0 && miPeak <= miFlat + kMemorySlack; }
    void showMemory() const
    {
        std::printf("server: %llu KiB at most in the first %u s, %llu KiB afterwards\n", miFlat, miWarmUp,
                    miPeak);
    }

private:
    void show(unsigned long long resident) const
    {
        std::printf("server: %3u s, %llu open, %llu accepted, %llu MiB, %llu KiB of memory\n", miSeconds,
                    mServer.open(), mServer.counts().accepted, mServer.counts().bytes >> 20, resident);
        std::fflush(stdout);
    }

    cEchoServer const& mServer;
    unsigned int const miConnections;
    unsigned int const miWarmUp;
    bool mbFinished = false;
    unsigned int miSeconds = 0;
    unsigned long long miFlat = 0;
    unsigned long long miPeak = 0;
    npi::cWork mWork;
};

bool expect(bool isTrue, char const* what)
{
    if (!isTrue)
        std::printf("server: FAILED: %s\n", what);
    return isTrue;
}

// The milliseconds for which this thread has run.
double processorTime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// One turn of the queue, and the longest one so far.
void turn(double& longest)
{
    double const start = processorTime();
    npi::cSystem::exec();
    longest = std::max(longest, processorTime() - start);
}

// Returns how many exceptions nobody has taken.
template<typename Condition>
unsigned int runWhile(Condition condition, double& longestTurn)
{
    unsigned int failures = 0;
    while (condition()) {
        try {
            turn(longestTurn);
        } catch (nstd::cAbstractException const& error) {
            nucs::cString text;
            error.createMessage(text, " ", nstd::cAbstractException::mfHistory, nullptr);
            std::printf("server: out of the main loop: %s\n", text.ascii().c_str());
            ++failures;
        }
    }
    return failures;
}

bool runServer(int portPipe, unsigned int connections, unsigned int warmUp)
{
    auto const& factory = loadTcp();
    cEndSignals const signals;
    cEchoServer server(factory, *parseAddress("127.0.0.1:0"));
    unsigned int const descriptors = openDescriptors();
    cMonitor monitor(server, connections, warmUp);
    tellPort(portPipe, server.address().isIPAddress()->port());

    double longestTurn = 0;
    unsigned int failures = runWhile([&signals] { return !signals.hasCome(); }, longestTurn);
    std::printf("server: the longest turn of the queue took %.1f ms of processor time\n", longestTurn);
    monitor.finish();
    nstd::cTime const end;
    failures += runWhile([&] { return server.open() != 0 && end.diff().toSec() < kEnding; }, longestTurn);

    auto const& counts = server.counts();
    monitor.showMemory();
    std::printf("server: %llu connections accepted, %llu ended, %llu were gone before\n", counts.accepted,
                counts.ended, counts.lost);
    bool isGood = expect(failures == 0, "an exception has left the main loop");
    isGood &= expect(counts.accepted == counts.ended, "each connection must be invalidated once");
    isGood &= expect(openDescriptors() == descriptors - 1, "a descriptor is left"); // without the pipe
    isGood &= expect(monitor.isFlat(), "the memory must not grow");
    return isGood;
}

int listenPlainly(sockaddr_in& address)
{
    socklen_t size = sizeof address;
    int const listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (listener < 0 || ::bind(listener, reinterpret_cast<sockaddr*>(&address), size) != 0
        || ::listen(listener, 1) != 0
        || ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        return -1;
    return listener;
}

} // namespace

int serve(int portPipe, unsigned int connections, unsigned int seconds)
{
    bool isGood = false;
    try {
        isGood = runServer(portPipe, connections, std::min(kWarmUp, seconds / 2));
        npi::cSystem::cleanup();
    } catch (nstd::cAbstractException const& error) {
        error.dump();
    }
    std::fflush(stdout);
    return isGood ? 0 : 1;
}

int servePlainly(int portPipe)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int const listener = listenPlainly(address);
    if (listener < 0)
        return 1;
    tellPort(portPipe, ntohs(address.sin_port));
    std::vector<char> data(65536);
    for (;;) {
        int const fd = ::accept(listener, nullptr, nullptr);
        pollfd waited = {fd, POLLIN, 0};
        while (::poll(&waited, 1, -1) >= 0) {
            ssize_t const count = ::recv(fd, data.data(), data.size(), 0);
            if (count <= 0)
                break;
            static_cast<void>(::send(fd, data.data(), static_cast<std::size_t>(count), MSG_NOSIGNAL));
        }
        ::close(fd);
    }
}
