// A server process with thousands of connections and peers that behave badly, on the loopback interface:
// every byte must come back, nobody may wait long, nothing may leak.

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include "load.h"
#include "servers.h"

namespace {

constexpr unsigned int kConnections = 5000;
constexpr unsigned int kActive = 200;
constexpr unsigned int kOtherDescriptors = 100; // bad peers, and what a process has anyway
constexpr double kStall = 100;                  // milliseconds
constexpr unsigned int kEnding = 30;            // seconds until the server is given up
constexpr unsigned int kLook = 100000;          // microseconds

// Raises the limit of descriptors as far as allowed; returns how many connections fit.
unsigned int raiseLimit(unsigned int connections)
{
    rlimit limit = {};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur = limit.rlim_max;
    if (::setrlimit(RLIMIT_NOFILE, &limit) != 0)
        ::getrlimit(RLIMIT_NOFILE, &limit);
    if (limit.rlim_cur >= connections + kOtherDescriptors)
        return connections;
    if (limit.rlim_cur < 3 * kOtherDescriptors)
        throw std::system_error(EMFILE, std::generic_category(), "the limit of descriptors");
    std::printf("load: only %llu descriptors are allowed\n", static_cast<unsigned long long>(limit.rlim_cur));
    return static_cast<unsigned int>(limit.rlim_cur) - kOtherDescriptors;
}

// A server in a process of its own, which does not survive this one.
template<typename Serve>
pid_t start(Serve serve, sockaddr_in& address)
{
    int pipe[2];
    unsigned short port = 0;
    if (::pipe(pipe) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    std::fflush(stdout); // else both print it
    pid_t const child = ::fork();
    if (child < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) {
        ::close(pipe[0]);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        std::exit(serve(pipe[1]));
    }
    ::close(pipe[1]);
    if (::read(pipe[0], &port, sizeof port) != sizeof port)
        throw std::system_error(ECONNREFUSED, std::generic_category(), "the server");
    ::close(pipe[0]);
    address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return child;
}

bool endsWell(pid_t child)
{
    for (unsigned int i = 0; i < kEnding * (1000000 / kLook); ++i) {
        int status = 0;
        if (::waitpid(child, &status, WNOHANG) == child) {
            if (WIFSIGNALED(status))
                std::printf("server: FAILED: signal %d\n", WTERMSIG(status));
            return WIFEXITED(status) && WEXITSTATUS(status) == 0;
        }
        ::usleep(kLook);
    }
    std::puts("server: FAILED: does not end");
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    return false;
}

// For how many milliseconds a process has waited for a processor; 0 where the system does not tell.
double waitedFor(pid_t process)
{
    char name[64];
    double run = 0;
    double wait = 0;
    std::snprintf(name, sizeof name, "/proc/%d/schedstat", static_cast<int>(process));
    std::FILE* const file = std::fopen(name, "re");
    bool const isRead = file && std::fscanf(file, "%lf %lf", &run, &wait) == 2;
    if (file)
        std::fclose(file);
    return isRead ? wait / 1e6 : 0;
}

// What the machine adds to a round trip is the time for which other processes kept the server from running,
// and what a server needs that does nothing else.
bool show(cLoadPlan const& plan, cLoadResult const& result)
{
    std::printf("load: %u connections opened in %.1f s, %u of them active for %u s\n", plan.connections,
                result.opening, plan.active, plan.seconds);
    std::printf("load: %llu messages, %llu MiB have come back; %u bad peers\n", result.messages,
                result.bytes >> 20, result.badPeers);
    std::printf("load: the longest round trip took %.1f ms, %.1f ms without waiting for a processor, %.1f ms "
                "with a plain server\n",
                result.worst, result.worstOwn, result.floorWorst);
    bool const isInTime = result.messages != 0 && result.worstOwn <= kStall + result.floorWorst;
    if (!isInTime)
        std::printf("load: FAILED: somebody had to wait more than %.0f ms longer\n", kStall);
    if (result.failures != 0)
        std::printf("load: FAILED: %llu times, first: %s\n", result.failures, result.failure.c_str());
    return isInTime && result.failures == 0;
}

bool run(unsigned int seconds, unsigned int connections)
{
    cLoadPlan plan = {};
    plan.seconds = seconds;
    plan.connections = raiseLimit(connections);
    plan.active = std::min(kActive, plan.connections / 2);
    pid_t const plain = start(servePlainly, plan.plain);
    pid_t const server =
        start([&plan](int pipe) { return serve(pipe, plan.connections, plan.seconds); }, plan.server);
    plan.waited = [server] { return waitedFor(server); };
    plan.beforeClosing = [server] {
        ::kill(server, SIGTERM);
        ::usleep(kLook); // then the turn in which all connections end is not one of those that count
    };
    bool const isGood = show(plan, runLoad(plan));
    ::kill(plain, SIGKILL);
    ::waitpid(plain, nullptr, 0);
    return endsWell(server) && isGood;
}

} // namespace

int main(int argc, char** argv)
{
    int const seconds = argc > 1 ? std::atoi(argv[1]) : 60;
    int const connections = argc > 2 ? std::atoi(argv[2]) : static_cast<int>(kConnections);
    if (argc > 3 || seconds < 10 || connections < 100) {
        std::fputs("usage: soak [SECONDS [CONNECTIONS]], at least 10 and 100\n", stderr);
        return 2;
    }
    try {
        bool const isGood = run(static_cast<unsigned int>(seconds), static_cast<unsigned int>(connections));
        std::puts(isGood ? "soak: passed" : "soak: FAILED");
        return isGood ? 0 : 1;
    } catch (std::system_error const& error) {
        std::fprintf(stderr, "soak: %s\n", error.what());
    }
    return 1;
}
