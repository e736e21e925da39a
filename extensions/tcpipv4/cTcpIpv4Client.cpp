#include "cTcpIpv4Client.h"

#include <cerrno>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <utility>

#include "cTcpIpv4Socket.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/pi/tFdInfo.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/raise.h"

namespace nnet {
namespace {

constexpr int kWait = 10; // milliseconds

[[noreturn]] void throwNotConnected()
{
    throw nstd::cRuntimeException(nstd::makeMessage("$MTR$Network connection closed unexpectedly! (c)"),
                                  nullptr, 0);
}

void startConnecting(cDescriptor const& descriptor, cTcpIpv4Address const& target)
{
    sockaddr_in const name = target.name();
    if (::connect(descriptor.get(), reinterpret_cast<sockaddr const*>(&name), sizeof name) != 0
        && errno != EINPROGRESS && errno != EINTR)
        throwOSError("connect", errno);
}

} // namespace

cTcpIpv4Client::cTcpIpv4Client(cTcpIpv4Address const& target, npi::cWorkQueue* queue)
    : cNetAbstractClient(queue),
      mTarget(target)
{
    mConnectable.setName("tcp connect");
    mConnectable.sigAction.connect(nrmi::slot(this, &cTcpIpv4Client::sltConnectable));
    // Before the slot of the base, which raises.
    timeoutWork().sigAction.connect(nrmi::slot(this, &cTcpIpv4Client::sltTimeIsUp),
                                    nrmi::cAbstractSignal::cpPrepend);
}

cTcpIpv4Client::~cTcpIpv4Client() = default;

void cTcpIpv4Client::connect(unsigned int timeoutMs)
{
    if (mDescriptor)
        cSTDExceptions::throwUnsupportedOperation("cTcpIpv4Client::connect()");
    cDescriptor descriptor = cDescriptor::createStream();
    nstd::tAutoPtr<npi::cAbstractAIOData> data =
        descriptor.createIOData(npi::tFdInfo::evWritable | npi::tFdInfo::evError);
    wq().addJob(mConnectable);
    // Only now may it be waited for: before, the socket counts as hung up.
    startConnecting(descriptor, mTarget);
    mDescriptor = std::move(descriptor);
    mConnectable.setAIOData(data);
    mConnectable.start(); // earlier failures are forgotten
    if (timeoutMs != 0)
        startTimeout(timeoutMs);
}

bool cTcpIpv4Client::isConnected() const
{
    return mbConnected;
}

nstd::tAutoPtr<nce::cNetAbstractConnection> cTcpIpv4Client::connection()
{
    if (!mbConnected)
        throwNotConnected();
    mbConnected = false;
    nstd::tAutoPtr<nce::cNetAbstractSocket> socket(new cTcpIpv4Socket(std::move(mDescriptor), mPeer));
    return nstd::tAutoPtr<nce::cNetAbstractConnection>(new nce::cNetAbstractConnection(socket));
}

nce::cNetAbstractAddress const& cTcpIpv4Client::targetAddress() const
{
    return mTarget;
}

void cTcpIpv4Client::processConnect()
{
    if (mbConnected)
        return;
    if (!mDescriptor)
        throwNotConnected();
    if (!isWritable()) {
        if (isTimeUp()) {
            abandon();
            sltTimeout();
        }
        return;
    }
    if (int const code = identify()) {
        abandon();
        throwOSError("connect", code);
    }
    mbConnected = true;
    disarm();
    sigConnected();
}

piVoid cTcpIpv4Client::sltConnectable()
{
    processConnect();
    return piVoid();
}

piVoid cTcpIpv4Client::sltTimeIsUp()
{
    abandon();
    return piVoid();
}

bool cTcpIpv4Client::isWritable() const
{
    pollfd waited = {mDescriptor.get(), POLLOUT, 0};
    int const count = ::poll(&waited, 1, kWait);
    if (count < 0 && errno != EINTR)
        throwOSError("poll", errno);
    return count > 0;
}

// Tells it also while the queue is not turning.
bool cTcpIpv4Client::isTimeUp()
{
    return timeoutWork().isStarted() && !(nstd::cTime() < timeoutWork().plannedTime());
}

// Finds out who has answered, and gives the error number when nobody has. When the system chooses the port
// that is the target, a socket connects to itself: nobody listens there.
int cTcpIpv4Client::identify()
{
    cTcpIpv4Address local;
    if (int const code = mDescriptor.takeError())
        return code;
    if (int const code = mDescriptor.readPeerAddress(mPeer))
        return code;
    if (int const code = mDescriptor.readLocalAddress(local))
        return code;
    return local.isEqual(mPeer) ? ECONNREFUSED : 0;
}

void cTcpIpv4Client::disarm()
{
    mConnectable.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>());
    if (timeoutWork().isStarted())
        stopTimeout();
}

void cTcpIpv4Client::abandon()
{
    cDescriptor const closing(std::move(mDescriptor)); // closed at the end, when no work waits for it
    mbConnected = false;
    if (closing)
        disarm();
}

} // namespace nnet
