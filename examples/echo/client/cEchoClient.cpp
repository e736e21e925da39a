#include "cEchoClient.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <unistd.h>

#include "nel_core/pi/cFDAIOData.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiStringStream.h"
#include "nel_core/ucs/cString.h"

using nce::cNetAbstractConnection;

namespace {

constexpr unsigned int kChunkSize = 64 * 1024;
constexpr unsigned int kWindow = 1024 * 1024; // bytes on their way at once
constexpr unsigned int kTicksPerTimeout = 4;

unsigned int valueOf(char byte)
{
    return static_cast<unsigned char>(byte);
}

} // namespace

cEchoClient::cEchoClient(nnet::cAbstractTcpFactory const& factory, nce::cNetAbstractAddress const& target,
                         int input, unsigned int timeout)
    : miInput(input),
      miTimeout(timeout),
      mpClient(factory.createClient(target, nullptr))
{
    maExpected.setFitOnErase(false);
    mInput.setName("input");
    mInput.sigAction.connect(nrmi::slot(this, &cEchoClient::sltInput));
    mTick.setName("time-out");
    mTick.sigAction.connect(nrmi::slot(this, &cEchoClient::sltTick));
    npi::schedule(mInput);
    npi::schedule(mTick);
    mpClient->sigConnected.connect(nrmi::slot(this, &cEchoClient::sltConnected));
    mpClient->connect(timeout);
}

cEchoClient::~cEchoClient() = default;

piVoid cEchoClient::sltConnected()
{
    mpConnection = mpClient->connection();
    mpConnection->sigPacketSent.connect(nrmi::slot(this, &cEchoClient::sltSent));
    mpConnection->sigDataReceived.connect(nrmi::slot(this, &cEchoClient::sltReceived));
    mpConnection->sigClosed.connect(nrmi::slot(this, &cEchoClient::sltClosed));
    mpConnection->errorHandler().connect(nrmi::slot(this, &cEchoClient::sltFailed));
    mpConnection->schedule(nullptr);
    mpConnection->receive(true);

    nstd::tAutoPtr<npi::cFDAIOData> data(new npi::cFDAIOData);
    data->addFd(miInput, npi::tFdInfo::evReadable);
    mInput.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>(data.release()));
    mTick.start(std::max(miTimeout / kTicksPerTimeout, 1u), npi::cWork::Periodic);
    return piVoid();
}

piVoid cEchoClient::sltInput()
{
    maChunk.setSize(kChunkSize);
    ssize_t const count = ::read(miInput, maChunk.data(), kChunkSize);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return piVoid();
    if (count < 0) {
        nstd::cAsciiString text("the input cannot be read: ");
        fail(text << std::strerror(errno));
        return piVoid();
    }
    if (count == 0) {
        endInput();
        return piVoid();
    }
    maChunk.truncate(static_cast<unsigned int>(count));
    maExpected.append(maChunk.data(), maChunk.length());
    mpConnection->sendSwap(maChunk);
    steerInput();
    return piVoid();
}

piVoid cEchoClient::sltSent()
{
    steerInput();
    return piVoid();
}

piVoid cEchoClient::sltReceived(cNetAbstractConnection&, tBytes const& data)
{
    miQuietTicks = 0;
    check(data);
    steerInput();
    finishWhenComplete();
    return piVoid();
}

piVoid cEchoClient::sltClosed(cNetAbstractConnection&)
{
    nstd::cAsciiString text("the server has closed the connection after ");
    fail(text << miReceived << " bytes");
    return piVoid();
}

piVoid cEchoClient::sltFailed(cNetAbstractConnection&, nstd::cAbstractException const& error)
{
    nucs::cString text;
    error.createMessage(text, " ", nstd::cAbstractException::mfHistory, nullptr);
    fail(text.ascii());
    return piVoid();
}

piVoid cEchoClient::sltTick()
{
    if (missing() == 0)
        miQuietTicks = 0;
    else if (++miQuietTicks > kTicksPerTimeout) {
        nstd::cAsciiString text("nothing has come back for ");
        fail(text << miTimeout << " milliseconds, after " << miReceived << " bytes");
    }
    return piVoid();
}

// How many bytes are on their way.
unsigned int cEchoClient::missing() const
{
    return maExpected.length() - miChecked;
}

void cEchoClient::endInput()
{
    mInput.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>());
    mbInputEnded = true;
    finishWhenComplete();
}

// Reads only what can be sent.
void cEchoClient::steerInput()
{
    bool const isWanted = !mbDone && !mbInputEnded && !mpConnection->isTxBusy() && missing() < kWindow;
    if (isWanted && !mInput.isStarted())
        mInput.start();
    else if (!isWanted && mInput.isStarted())
        mInput.stop();
}

void cEchoClient::check(tBytes const& data)
{
    char const* const expected = maExpected.data(true) + miChecked;
    unsigned int const size = std::min(data.length(), missing());
    auto const same = static_cast<unsigned int>(
        std::mismatch(data.begin(), data.begin() + size, expected).first - data.begin());
    miReceived += same;
    miChecked += same;
    if (same < size) {
        nstd::cAsciiString text("byte ");
        fail(text << miReceived << " has come back as " << valueOf(data[same]) << " instead of "
                  << valueOf(expected[same]));
    } else if (size < data.length()) {
        nstd::cAsciiString text("more has come back than the ");
        fail(text << miReceived << " bytes that were sent");
    }
    if (miChecked >= kWindow / 2 || missing() == 0) {
        maExpected.erase(0, miChecked);
        miChecked = 0;
    }
}

// The first failure counts.
void cEchoClient::fail(nstd::cAsciiString const& what)
{
    if (mbDone)
        return;
    mbDone = true;
    msFailure = what;
}

void cEchoClient::finishWhenComplete()
{
    if (mbInputEnded && missing() == 0)
        mbDone = true;
}
