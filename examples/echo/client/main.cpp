#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include "cEchoClient.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cTime.h"
#include "program.h"
#include "tcp.h"

namespace {

constexpr char kName[] = "echo-client";
constexpr char kUsage[] = "usage: echo-client --connect ADDRESS:PORT [--timeout MILLISECONDS] [FILE]\n"
                          "Sends a file, or standard input, to an echo server and checks what comes back.\n"
                          "  --connect  where the server listens\n"
                          "  --timeout  how long connecting, or any byte, may take (default: 5000)\n"
                          "  --help     show this text\n"
                          "The exit status is 0 when everything has come back as it was sent, 1 when not, "
                          "and 2 for wrong arguments.\n";

// The input, closed with the object unless it is standard input.
class cInput {
public:
    explicit cInput(char const* file)
        : miFd(file ? ::open(file, O_RDONLY | O_CLOEXEC | O_NONBLOCK) : STDIN_FILENO)
    {
    }
    cInput(cInput const&) = delete;
    cInput& operator=(cInput const&) = delete;
    ~cInput()
    {
        if (miFd > STDERR_FILENO)
            ::close(miFd);
    }

    int fd() const { return miFd; }

private:
    int const miFd;
};

int fail(char const* text, char const* more)
{
    std::fprintf(stderr, "%s: %s%s\n", kName, text, more);
    return 1;
}

int send(cArguments const& arguments)
{
    auto const& factory = loadTcp();
    auto const target = parseAddress(arguments.address);
    if (!target)
        return refuseArgument(kName, "no address like 127.0.0.1:8080", arguments.address);
    cInput const input(arguments.file);
    if (input.fd() < 0)
        return fail("the file cannot be opened: ", std::strerror(errno));
    if (::fcntl(input.fd(), F_GETFD) < 0) // else the next socket would take its number
        return fail("there is no standard input: ", std::strerror(errno));

    nstd::cTime const start;
    cEchoClient client(factory, *target, input.fd(), arguments.timeout);
    while (!client.isDone())
        npi::cSystem::exec();
    if (client.failure().length() > 0)
        return fail(client.failure().c_str(), "");
    std::printf("%llu bytes have come back as they were sent, in %llu ms\n", client.bytes(),
                start.diff().toMSec());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram({kName, "--connect", true, kUsage, send}, argc, argv);
}
