#include "cDescriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

#include "cTcpIpv4Address.h"
#include "nel_core/pi/cFDAIOData.h"
#include "nel_core/std/cOSErrorException.h"

namespace nnet {
namespace {

template<typename Call>
int readName(Call call, int fd, cTcpIpv4Address& address)
{
    sockaddr_in name = {};
    socklen_t size = sizeof name;
    if (call(fd, reinterpret_cast<sockaddr*>(&name), &size) != 0)
        return errno;
    address = cTcpIpv4Address(name);
    return 0;
}

} // namespace

void throwOSError(char const* operation, int code)
{
    throw nstd::cOSErrorException(operation, code);
}

cDescriptor& cDescriptor::operator=(cDescriptor&& other) noexcept
{
    cDescriptor taken(std::move(other));
    std::swap(miFd, taken.miFd);
    return *this;
}

cDescriptor::~cDescriptor()
{
    if (miFd >= 0)
        ::close(miFd); // the descriptor is free whatever this returns
}

cDescriptor cDescriptor::createStream()
{
    int const fd = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (fd < 0)
        throwOSError("socket", errno);
    return cDescriptor(fd);
}

void cDescriptor::setOption(int level, int option)
{
    int const on = 1;
    if (::setsockopt(miFd, level, option, &on, sizeof on) != 0)
        throwOSError("setsockopt", errno);
}

void cDescriptor::setFlags()
{
    if (::fcntl(miFd, F_SETFL, O_NONBLOCK) < 0 || ::fcntl(miFd, F_SETFD, FD_CLOEXEC) < 0)
        throwOSError("fcntl", errno);
}

int cDescriptor::takeError()
{
    int error = 0;
    socklen_t size = sizeof error;
    return ::getsockopt(miFd, SOL_SOCKET, SO_ERROR, &error, &size) == 0 ? error : errno;
}

int cDescriptor::readLocalAddress(cTcpIpv4Address& address) const
{
    return readName(::getsockname, miFd, address);
}

int cDescriptor::readPeerAddress(cTcpIpv4Address& address) const
{
    return readName(::getpeername, miFd, address);
}

nstd::tAutoPtr<npi::cAbstractAIOData> cDescriptor::createIOData(unsigned int events) const
{
    nstd::tAutoPtr<npi::cFDAIOData> data(new npi::cFDAIOData);
    data->fds().setNumElementsAhead(1); // there are thousands of these
    data->addFd(miFd, events);
    return nstd::tAutoPtr<npi::cAbstractAIOData>(data.release());
}

} // namespace nnet
