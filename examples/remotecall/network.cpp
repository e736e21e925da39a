#include "network.h"

#include <cstdio>

#include "cPacketConnection.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "show.h"
#include "tcp.h"

namespace {

constexpr unsigned int kTimeout = 5000; // milliseconds

// What fails with one client, or in the queue, is no reason to end.
void serveNext(nnet::cAbstractTcpServer& server, bool (*serve)(cAbstractPackets&))
{
    try {
        auto connection = server.connection();
        if (!connection) {
            npi::cSystem::exec();
            return;
        }
        cPacketConnection packets(connection);
        serve(packets);
    } catch (nstd::cAbstractException const& error) {
        std::fputs("remotecall: a call was not answered:\n", stderr);
        show(stderr, error);
    }
}

} // namespace

void serveAt(nnet::cAbstractTcpFactory const& factory, nce::cNetAbstractAddress const& local,
             bool (*serve)(cAbstractPackets&))
{
    auto const server = factory.createServer(local, nullptr);
    server->listen();
    std::printf("listening on %s\n", textOf(server->address()).c_str());
    std::fflush(stdout);
    for (;;)
        serveNext(*server, serve);
}

bool callAt(nnet::cAbstractTcpFactory const& factory, nce::cNetAbstractAddress const& target,
            bool (*call)(cAbstractPackets&))
{
    auto const client = factory.createClient(target, nullptr);
    client->connect(kTimeout);
    while (!client->isConnected())
        npi::cSystem::exec();
    cPacketConnection packets(client->connection());
    return call(packets);
}
