#include "cEchoServer.h"

#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/std/cAbstractException.h"

struct cEchoServer::cEntry : cEchoConnection {
    using cEchoConnection::cEchoConnection;

    nstd::tPtrList<cEntry>::iterator place;
};

cEchoServer::cEchoServer(nnet::cAbstractTcpFactory const& factory, nce::cNetAbstractAddress const& local)
    : mpServer(factory.createServer(local, nullptr))
{
    mConnections.setGuardMode(nstd::tPtrList<cEntry>::gmOwn);
    mEnded.setGuardMode(nstd::tPtrList<cEntry>::gmOwn);
    mDisposal.setName("disposal of connections");
    mDisposal.sigAction.connect(nrmi::slot(this, &cEchoServer::sltDispose));
    npi::schedule(mDisposal);
    mpServer->sigConnected.connect(nrmi::slot(this, &cEchoServer::sltConnected));
    mpServer->listen();
}

cEchoServer::~cEchoServer() = default;

// A connection may have failed again by now, which is no reason to fail for the server.
piVoid cEchoServer::sltConnected(nce::cNetAbstractAddress const&)
{
    try {
        auto connection = mpServer->connection();
        if (connection)
            take(connection);
    } catch (nstd::cAbstractException const&) {
        ++mCounts.lost;
    }
    return piVoid();
}

void cEchoServer::take(nstd::tAutoPtr<nce::cNetAbstractConnection> connection)
{
    nstd::tAutoPtr<cEntry> entry(new cEntry(connection));
    entry->sigEnded.connect(nrmi::slot(this, &cEchoServer::sltEnded));
    entry->sigEchoed.connect(nrmi::slot(this, &cEchoServer::sltEchoed));
    cEntry& taken = *entry;
    mConnections.guardedInsert(mConnections.end(), entry);
    taken.place = mConnections.last();
    ++mCounts.accepted;
}

piVoid cEchoServer::sltEchoed(unsigned int size)
{
    mCounts.bytes += size;
    return piVoid();
}

// It goes in the next turn of the queue: it is just calling.
piVoid cEchoServer::sltEnded(cEchoConnection& connection)
{
    ++mCounts.ended;
    auto entry = mConnections.take(static_cast<cEntry&>(connection).place);
    mEnded.guardedInsert(mEnded.end(), entry);
    if (!mDisposal.isStarted())
        mDisposal.start();
    return piVoid();
}

piVoid cEchoServer::sltDispose()
{
    mEnded.clear();
    return piVoid();
}
