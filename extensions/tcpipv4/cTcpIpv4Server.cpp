#include "cTcpIpv4Server.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <netinet/in.h>
#include <sys/socket.h>
#include <utility>

#include "cTcpIpv4Socket.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/pi/tFdInfo.h"
#include "nel_core/std/cAsciiStringStream.h"
#include "nel_core/std/cSTDExceptions.h"

namespace nnet {
namespace {

constexpr unsigned int kAcceptsPerTurn = 16; // the others in the queue wait meanwhile
constexpr unsigned int kPause = 250;         // milliseconds

// The system has run out of something that others may give back.
constexpr bool isShortage(int code)
{
    return code == EMFILE || code == ENFILE || code == ENOBUFS || code == ENOMEM;
}

// Concerns the one who wanted to connect, or nobody: the next one may be accepted.
constexpr bool isPassing(int code)
{
    return code == EINTR || code == ECONNABORTED || code == EPROTO;
}

} // namespace

// An accepted connection that waits for connection().
struct cTcpIpv4Server::cPending {
    cDescriptor descriptor;
    cTcpIpv4Address peer;
};

cTcpIpv4Server::cTcpIpv4Server(cTcpIpv4Address const& local, npi::cWorkQueue* queue)
    : cAbstractTcpServer(queue),
      mGiven(local),
      mBound(local)
{
    mPending.setGuardMode(nstd::tPtrList<cPending>::gmOwn);
    mAcceptable.sigAction.connect(nrmi::slot(this, &cTcpIpv4Server::sltAcceptable));
    mResume.sigAction.connect(nrmi::slot(this, &cTcpIpv4Server::sltResume));
    mResume.setName("tcp listen resume");
}

cTcpIpv4Server::~cTcpIpv4Server()
{
    nstd::cLife::end(mpLives);
}

void cTcpIpv4Server::listen()
{
    if (mListener)
        cSTDExceptions::throwUnsupportedOperation("cTcpIpv4Server::listen()");
    cDescriptor listener = cDescriptor::createStream();
    listener.setOption(SOL_SOCKET, SO_REUSEADDR);
    sockaddr_in const name = mGiven.name();
    if (::bind(listener.get(), reinterpret_cast<sockaddr const*>(&name), sizeof name) != 0)
        throwOSError("bind", errno);
    if (::listen(listener.get(), static_cast<int>(std::min<unsigned int>(miBacklog, INT_MAX))) != 0)
        throwOSError("listen", errno);
    cTcpIpv4Address bound;
    if (int const code = listener.readLocalAddress(bound))
        throwOSError("getsockname", code);

    nstd::cAsciiString workName("tcp listen ");
    workName << bound.toString(true);
    nstd::tAutoPtr<npi::cAbstractAIOData> data = listener.createIOData(npi::tFdInfo::evReadable);
    wq().addJob(mAcceptable);
    wq().addJob(mResume);
    mAcceptable.setName(static_cast<nstd::cAsciiString&&>(workName));
    mBound = bound;
    mListener = std::move(listener);
    mAcceptable.setAIOData(data);
    mAcceptable.start(); // earlier failures are forgotten
}

void cTcpIpv4Server::close()
{
    cDescriptor const closing(std::move(mListener)); // closed at the end, when no work waits for it
    if (!closing)
        return;
    mBound = mGiven;
    miPending = 0;
    mPending.clear();
    mAcceptable.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>()); // first: what follows may raise
    mResume.stop();
}

bool cTcpIpv4Server::isListening() const
{
    return static_cast<bool>(mListener);
}

nstd::tAutoPtr<nce::cNetAbstractConnection> cTcpIpv4Server::connection()
{
    if (mPending.empty())
        return nstd::tAutoPtr<nce::cNetAbstractConnection>();
    nstd::tAutoPtr<cPending> const oldest = mPending.take(mPending.begin());
    --miPending;
    nstd::tAutoPtr<nce::cNetAbstractSocket> socket(
        new cTcpIpv4Socket(std::move(oldest->descriptor), oldest->peer));
    return nstd::tAutoPtr<nce::cNetAbstractConnection>(new nce::cNetAbstractConnection(socket));
}

nce::cNetAbstractAddress const& cTcpIpv4Server::address() const
{
    return mBound;
}

void cTcpIpv4Server::setBacklog(unsigned int backlog)
{
    miBacklog = backlog;
}

void cTcpIpv4Server::setMaxPending(unsigned int count)
{
    miMaxPending = count;
}

piVoid cTcpIpv4Server::sltAcceptable()
{
    nstd::cLife const life(mpLives);
    for (unsigned int i = 0; i < kAcceptsPerTurn && life && mListener; ++i) {
        cTcpIpv4Address peer;
        int code = 0;
        cDescriptor accepted = accept(peer, code);
        if (accepted)
            admit(std::move(accepted), peer);
        else if (!refuse(code))
            break;
    }
    return piVoid();
}

piVoid cTcpIpv4Server::sltResume()
{
    if (mListener)
        mAcceptable.start();
    return piVoid();
}

// `code` becomes the error number when there is no descriptor.
cDescriptor cTcpIpv4Server::accept(cTcpIpv4Address& peer, int& code)
{
    sockaddr_in name = {};
    socklen_t size = sizeof name;
    cDescriptor accepted(
        ::accept4(mListener.get(), reinterpret_cast<sockaddr*>(&name), &size, SOCK_NONBLOCK | SOCK_CLOEXEC));
    code = accepted ? 0 : errno;
    peer = cTcpIpv4Address(name);
    return accepted;
}

// What follows from a failed accept: whether to go on with the next one.
bool cTcpIpv4Server::refuse(int code)
{
    if (isPassing(code))
        return true;
    if (isShortage(code)) {
        mAcceptable.stop(); // it would fire all the time
        mResume.start(kPause, npi::cWork::SingleTask);
    } else if (code != EAGAIN && code != EWOULDBLOCK) {
        throwOSError("accept4", code);
    }
    return false;
}

// Queues the connection unless somebody minds. The slots may do anything to this object.
void cTcpIpv4Server::admit(cDescriptor accepted, cTcpIpv4Address const& peer)
{
    if (miPending >= miMaxPending)
        return;
    nstd::cLife const life(mpLives);
    bool isAccepted = true;
    sigConnectionRequest(peer, isAccepted);
    if (!isAccepted || !life || !mListener || miPending >= miMaxPending)
        return;
    nstd::tAutoPtr<cPending> pending(new cPending{std::move(accepted), peer});
    mPending.guardedInsert(mPending.end(), pending);
    ++miPending;
    sigConnected(peer);
}

} // namespace nnet
