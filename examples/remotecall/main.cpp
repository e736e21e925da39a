#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cCalculator.h"
#include "cPacketSocket.h"
#include "cSlotServer.h"
#include "client.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAbstractException.h"
#include "network.h"
#include "show.h"
#include "tcp.h"

namespace {

constexpr char kUsage[] = "usage: remotecall [--bind ADDRESS:PORT | --connect ADDRESS:PORT]\n"
                          "Calls slots of an object in another process by their names.\n"
                          "  --bind     only offer the object, over TCP; with port 0 the system chooses one\n"
                          "  --connect  only call, over TCP\n"
                          "  --help     show this text\n";
constexpr int kWrongUsage = 2;

// Keeps the debug output quiet while it lives: what fails in a slot is told to the caller.
class cSilence : public npi::cAbstractOut {
public:
    cSilence() { npi::system().debug.link(this); }
    ~cSilence() override { npi::system().debug.link(nullptr); }

    void printChar(char) override { }
};

bool serve(cAbstractPackets& packets)
{
    cSilence const silence;
    cCalculator calculator;
    cSlotServer(calculator, packets).run();
    return true;
}

// Returns the exit status, which is that of `run` unless something fails.
template<typename Run>
int runSafely(Run run)
{
    try {
        npi::system();
        int const status = run();
        npi::cSystem::cleanup();
        return std::fflush(stdout) == 0 ? status : 1;
    } catch (nstd::cAbstractException const& error) {
        std::fputs("remotecall:\n", stderr);
        show(stderr, error);
    } catch (std::bad_alloc const&) {
        std::fputs("remotecall: out of memory\n", stderr);
    }
    return 1;
}

int runOver(int fd, bool (*run)(cAbstractPackets&))
{
    cPacketSocket socket(fd);
    return runSafely([&socket, run] { return run(socket) ? 0 : 1; });
}

int failed(char const* operation)
{
    std::fprintf(stderr, "remotecall: %s: %s\n", operation, std::strerror(errno));
    return 1;
}

bool hasEndedWell(pid_t child)
{
    int status = 0;
    while (::waitpid(child, &status, 0) == -1) {
        if (errno != EINTR)
            return false;
    }
    if (WIFSIGNALED(status))
        std::fprintf(stderr, "remotecall: signal %d has ended the other process\n", WTERMSIG(status));
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Each process keeps one end only, so that it sees when the other one is gone.
int runBoth()
{
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return failed("socketpair");
    pid_t const child = ::fork();
    if (child == -1)
        return failed("fork");
    if (child == 0) {
        ::close(ends[0]);
        return runOver(ends[1], serve);
    }
    ::close(ends[1]);
    int const status = runOver(ends[0], callRemoteSlots); // closes its end, which ends the other process
    return hasEndedWell(child) ? status : 1;
}

int runOverTcp(char const* option, char const* text)
{
    auto const& factory = loadTcp();
    auto const address = parseAddress(text);
    if (!address) {
        std::fprintf(stderr, "remotecall: \"%s\" is no address like 127.0.0.1:8080\n", text);
        return kWrongUsage;
    }
    if (std::strcmp(option, "--bind") == 0)
        serveAt(factory, *address, serve);
    cSilence const silence;
    return callAt(factory, *address, callRemoteSlots) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 1)
        return runBoth();
    if (argc == 3 && (std::strcmp(argv[1], "--bind") == 0 || std::strcmp(argv[1], "--connect") == 0))
        return runSafely([argv] { return runOverTcp(argv[1], argv[2]); });
    bool const isHelp = argc == 2 && std::strcmp(argv[1], "--help") == 0;
    std::fputs(kUsage, isHelp ? stdout : stderr);
    return isHelp ? 0 : kWrongUsage;
}
