#include "cPacketConnection.h"

#include <algorithm>

#include "nel_core/pi/cSystem.h"

using nce::cNetAbstractConnection;

cPacketConnection::cPacketConnection(nstd::tAutoPtr<cNetAbstractConnection> connection)
    : mpConnection(connection)
{
    mpConnection->sigDataReceived.connect(nrmi::slot(this, &cPacketConnection::sltReceived));
    mpConnection->sigClosed.connect(nrmi::slot(this, &cPacketConnection::sltClosed));
    mpConnection->schedule(nullptr);
}

cPacketConnection::~cPacketConnection() = default;

// What is taken is received; for more there is time when somebody wants it.
piVoid cPacketConnection::sltReceived(cNetAbstractConnection& connection, tBytes const& data)
{
    maIn = data;
    miTaken = 0;
    connection.receive(false);
    return piVoid();
}

piVoid cPacketConnection::sltClosed(cNetAbstractConnection&)
{
    mbClosed = true;
    return piVoid();
}

void cPacketConnection::sendAll(char const* data, std::size_t size, Order order)
{
    maOut.append(data, static_cast<unsigned int>(size));
    if (order == orderMore)
        return;
    mpConnection->sendSwap(maOut);
    maOut.truncate(0);
    while (mpConnection->isTxBusy())
        npi::cSystem::exec();
    if (mbClosed)
        throwGone();
}

std::size_t cPacketConnection::receiveUpTo(char* data, std::size_t size)
{
    if (size == 0)
        return 0;
    if (miTaken == maIn.length() && !mbClosed)
        mpConnection->receive(true);
    while (miTaken == maIn.length() && !mbClosed)
        npi::cSystem::exec();
    auto const count = static_cast<unsigned int>(std::min<std::size_t>(size, maIn.length() - miTaken));
    std::copy_n(maIn.data(true) + miTaken, count, data);
    miTaken += count;
    return count;
}
