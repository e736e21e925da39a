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
#include "show.h"

namespace {

constexpr char kUsage[] = "usage: remotecall\n"
                          "Calls slots of an object in another process by their names.\n"
                          "  --help    show this text\n";

// Keeps the debug output quiet while it lives: what fails in a slot is told to the caller.
class cSilence : public npi::cAbstractOut {
public:
    cSilence() { npi::system().debug.link(this); }
    ~cSilence() override { npi::system().debug.link(nullptr); }

    void printChar(char) override { }
};

bool serve(cPacketSocket& socket)
{
    cSilence const silence;
    cCalculator calculator;
    cSlotServer(calculator, socket).run();
    return true;
}

bool runSafely(bool (*run)(cPacketSocket&), int fd)
{
    cPacketSocket socket(fd);
    try {
        npi::system();
        bool const isGood = run(socket);
        npi::cSystem::cleanup();
        return isGood && std::fflush(stdout) == 0;
    } catch (nstd::cAbstractException const& error) {
        std::fputs("remotecall:\n", stderr);
        show(stderr, error);
    } catch (std::bad_alloc const&) {
        std::fputs("remotecall: out of memory\n", stderr);
    }
    return false;
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
        return runSafely(serve, ends[1]) ? 0 : 1;
    }
    ::close(ends[1]);
    bool const isGood = runSafely(callRemoteSlots, ends[0]); // closes its end, which ends the other process
    return hasEndedWell(child) && isGood ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 1)
        return runBoth();
    bool const isHelp = argc == 2 && std::strcmp(argv[1], "--help") == 0;
    std::fputs(kUsage, isHelp ? stdout : stderr);
    return isHelp ? 0 : 2;
}
