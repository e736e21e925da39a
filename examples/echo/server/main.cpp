#include <cstdio>

#include "cEchoServer.h"
#include "cEndSignals.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "program.h"
#include "tcp.h"

namespace {

constexpr char kName[] = "echo-server";
constexpr char kUsage[] = "usage: echo-server --bind ADDRESS:PORT\n"
                          "Sends back whatever it receives, until SIGINT or SIGTERM.\n"
                          "  --bind  where to listen; with port 0 the system chooses the port\n"
                          "  --help  show this text\n";
constexpr unsigned int kInterval = 1000; // milliseconds

void showStatus(cEchoServer const& server)
{
    std::printf("%llu open, %llu connections, %llu bytes\n", server.open(), server.counts().accepted,
                server.counts().bytes);
    std::fflush(stdout);
}

// Shows the status periodically.
class cStatus : public nrmi::cConnectable {
public:
    explicit cStatus(cEchoServer const& server) : mServer(server)
    {
        mWork.setName("status");
        mWork.sigAction.connect(nrmi::slot(this, &cStatus::sltShow));
        mWork.start(kInterval, npi::cWork::Periodic);
        npi::schedule(mWork);
    }

    piVoid sltShow()
    {
        showStatus(mServer);
        return piVoid();
    }

private:
    cEchoServer const& mServer;
    npi::cWork mWork;
};

int serve(cArguments const& arguments)
{
    auto const& factory = loadTcp();
    auto const local = parseAddress(arguments.address);
    if (!local)
        return refuseArgument(kName, "no address like 127.0.0.1:8080", arguments.address);
    cEndSignals const signals;
    cEchoServer server(factory, *local);
    std::printf("listening on %s\n", textOf(server.address()).c_str());
    std::fflush(stdout);
    cStatus const status(server);

    // What no handler has taken ends one cycle and not the program.
    while (!signals.hasCome()) {
        try {
            npi::cSystem::exec();
        } catch (nstd::cAbstractException const& error) {
            report(kName, error);
        }
    }
    showStatus(server);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram({kName, "--bind", false, kUsage, serve}, argc, argv);
}
