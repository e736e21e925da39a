#pragma once

#include "nel_core/nce/net++/cNetAbstractClient.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_net/cAbstractTcpFactory.h"

/// Sends what a descriptor gives to an echo server and checks that it comes back.
class cEchoClient : public nrmi::cConnectable {
public:
    typedef nce::cNetAbstractConnection::tBytes tBytes;

    /// Starts to connect. `input` stays the caller's. Neither connecting nor any byte on its way may take
    /// longer than `timeout` milliseconds. Raises what makes connecting fail; so does the queue.
    cEchoClient(nnet::cAbstractTcpFactory const& factory, nce::cNetAbstractAddress const& target, int input,
                unsigned int timeout);
    ~cEchoClient() override;

    /// Whether everything has come back, or something is wrong.
    bool isDone() const { return mbDone; }
    /// What is wrong; empty when nothing is.
    nstd::cAsciiString const& failure() const { return msFailure; }
    unsigned long long bytes() const { return miReceived; }

    piVoid sltConnected();
    piVoid sltInput();
    piVoid sltSent();
    piVoid sltReceived(nce::cNetAbstractConnection& connection, tBytes const& data);
    piVoid sltClosed(nce::cNetAbstractConnection& connection);
    piVoid sltFailed(nce::cNetAbstractConnection& connection, nstd::cAbstractException const& error);
    piVoid sltTick();

private:
    unsigned int missing() const;
    void endInput();
    void steerInput();
    void check(tBytes const& data);
    void fail(nstd::cAsciiString const& what);
    void finishWhenComplete();

    int miInput;
    unsigned int miTimeout;
    nstd::tAutoPtr<nce::cNetAbstractClient> mpClient;
    nstd::tAutoPtr<nce::cNetAbstractConnection> mpConnection;
    npi::cWork mInput;
    npi::cWork mTick;
    tBytes maChunk;
    tBytes maExpected;          ///< what has been sent
    unsigned int miChecked = 0; ///< of it, from its start
    unsigned long long miReceived = 0;
    unsigned int miQuietTicks = 0;
    bool mbInputEnded = false;
    bool mbDone = false;
    nstd::cAsciiString msFailure;
};
