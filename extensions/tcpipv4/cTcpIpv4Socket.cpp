#include "cTcpIpv4Socket.h"

#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <utility>

#include "nel_core/pi/tFdInfo.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cAsciiStringStream.h"
#include "nel_core/std/tArray.h"

namespace nnet {
namespace {

constexpr unsigned int kChunkSize = 65536;

// The call may succeed later.
constexpr bool isPassing(int code)
{
    return code == EAGAIN || code == EWOULDBLOCK || code == EINTR;
}

// There is nobody at the other end any more.
constexpr bool isPeerLost(int code)
{
    return code == ECONNRESET || code == ETIMEDOUT || code == EPIPE || code == EHOSTUNREACH
           || code == ENETUNREACH;
}

void stop(npi::cWork& work)
{
    if (work.isStarted())
        work.stop();
}

} // namespace

cTcpIpv4Socket::cTcpIpv4Socket(cDescriptor connected, cTcpIpv4Address const& peer)
    : mDescriptor(std::move(connected)),
      mPeer(peer)
{
    mDescriptor.setFlags();
    mDescriptor.setOption(IPPROTO_TCP, TCP_NODELAY);
    mDescriptor.setOption(SOL_SOCKET, SO_KEEPALIVE);
    if (int const code = mDescriptor.readLocalAddress(mLocal))
        throwOSError("getsockname", code);

    nstd::cAsciiString const peerText = mPeer.toString(true);
    arm(readableWork(), "tcp readable ", npi::tFdInfo::evReadable, peerText);
    arm(writableWork(), "tcp writable ", npi::tFdInfo::evWritable, peerText);
    arm(exceptionWork(), "tcp exception ", npi::tFdInfo::evError, peerText);
}

cTcpIpv4Socket::~cTcpIpv4Socket()
try {
    close();
} catch (...) { // of slots that watch the works; the descriptor is closed
}

nce::cNetAbstractAddress& cTcpIpv4Socket::remoteAddress()
{
    return mPeer;
}

nce::cNetAbstractAddress& cTcpIpv4Socket::localAddress()
{
    return mLocal;
}

unsigned int cTcpIpv4Socket::maxChunkSize() const
{
    return kChunkSize;
}

void cTcpIpv4Socket::handleException()
{
    if (!mDescriptor)
        return;
    if (mDescriptor.takeError() != 0) {
        markClosed();
        return;
    }
    int const waiting = peek();
    if (waiting == 0)
        markClosed();
    else if (waiting > 0)
        exceptionWork().stop(); // the hang-up lasts; whoever reads finds the end behind the data
}

unsigned int cTcpIpv4Socket::read(char* data, unsigned int size, nce::cNetAbstractAddress* from)
{
    if (from)
        mPeer.copyTo(*from); // nobody else sends; may raise, so before bytes are taken
    return receive(data, size);
}

bool cTcpIpv4Socket::readAvailable(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>& data,
                                   nce::cNetAbstractAddress* from)
{
    data.setSize(kChunkSize);
    unsigned int const count = read(data.data(), kChunkSize, from);
    data.truncate(count);
    return count != 0;
}

bool cTcpIpv4Socket::canRead() const
{
    return mDescriptor && peek() > 0;
}

unsigned int cTcpIpv4Socket::write(char const* data, unsigned int size)
{
    if (size == 0 || !mDescriptor)
        return 0;
    auto const count = ::send(mDescriptor.get(), data, size, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count >= 0)
        return static_cast<unsigned int>(count);
    int const code = errno;
    if (isPeerLost(code))
        markClosed();
    else if (!isPassing(code))
        throwOSError("send", code);
    return 0;
}

void cTcpIpv4Socket::close()
{
    cDescriptor const closing(std::move(mDescriptor)); // closed at the end, when no work waits for it
    if (!closing)
        return;
    auto const works = {&readableWork(), &writableWork(), &exceptionWork()};
    for (npi::cWork* work : works)
        work->markDone(); // in any case: what follows may raise
    for (npi::cWork* work : works)
        work->setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>());
}

bool cTcpIpv4Socket::isClosed() const
{
    return mbClosed || !mDescriptor;
}

void cTcpIpv4Socket::arm(npi::cWork& work, char const* name, unsigned int events,
                         nstd::cAsciiString const& peer)
{
    nstd::cAsciiString text(name);
    text << peer;
    work.setName(static_cast<nstd::cAsciiString&&>(text));
    work.setAIOData(mDescriptor.createIOData(events));
    work.stop();
}

// The number of bytes; without any, the end is marked where that is the reason.
unsigned int cTcpIpv4Socket::receive(char* data, unsigned int size)
{
    if (size == 0 || !mDescriptor)
        return 0;
    auto const count = ::recv(mDescriptor.get(), data, size, MSG_DONTWAIT);
    if (count > 0)
        return static_cast<unsigned int>(count);
    int const code = count == 0 ? 0 : errno;
    if (code == 0 || code == ENOTCONN || isPeerLost(code))
        markClosed();
    else if (!isPassing(code))
        throwOSError("recv", code);
    return 0;
}

// 1 when data is waiting, 0 at the end, negative when there is nothing yet.
int cTcpIpv4Socket::peek() const
{
    char byte;
    return static_cast<int>(::recv(mDescriptor.get(), &byte, 1, MSG_PEEK | MSG_DONTWAIT));
}

// The works are watched by others: nothing is touched behind the last one.
void cTcpIpv4Socket::markClosed()
{
    bool const isNew = !mbClosed;
    mbClosed = true;
    stop(readableWork());
    stop(writableWork());
    if (isNew)
        exceptionWork().start(0, npi::cWork::SingleTask);
}

} // namespace nnet
