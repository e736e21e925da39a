#include "cEchoConnection.h"

using nce::cNetAbstractConnection;

cEchoConnection::cEchoConnection(nstd::tAutoPtr<cNetAbstractConnection> connection) : mpConnection(connection)
{
    mpConnection->sigDataReceived.connect(nrmi::slot(this, &cEchoConnection::sltReceived));
    mpConnection->sigPacketSent.connect(nrmi::slot(this, &cEchoConnection::sltSent));
    mpConnection->sigInvalidated.connect(nrmi::slot(this, &cEchoConnection::sltInvalidated));
    mpConnection->errorHandler().connect(nrmi::slot(this, &cEchoConnection::sltFailed));
    mpConnection->schedule(nullptr);
    mpConnection->receive(true);
}

// Its own end is nothing to be told of.
cEchoConnection::~cEchoConnection()
{
    mpConnection->sigInvalidated.disconnect(*this);
}

piVoid cEchoConnection::sltReceived(cNetAbstractConnection& connection, tBytes const& data)
{
    connection.send(data);
    if (connection.isTxBusy()) {
        mbPaused = true;
        connection.receive(false);
    }
    sigEchoed(data.length());
    return piVoid();
}

piVoid cEchoConnection::sltSent()
{
    if (mbPaused) {
        mbPaused = false;
        mpConnection->receive(true);
    }
    return piVoid();
}

piVoid cEchoConnection::sltFailed(cNetAbstractConnection& connection, nstd::cAbstractException const&)
{
    connection.invalidateLater();
    return piVoid();
}

piVoid cEchoConnection::sltInvalidated(cNetAbstractConnection&)
{
    sigEnded(*this);
    return piVoid();
}
