#include "cPacketSocket.h"

#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

#include "nel_core/std/cOSErrorException.h"

cPacketSocket::~cPacketSocket()
{
    ::close(miFd);
}

// The socket keeps bytes back until those that follow come.
void cPacketSocket::sendAll(char const* data, std::size_t size, Order order)
{
    int const flags = MSG_NOSIGNAL | (order == orderMore ? MSG_MORE : 0);
    while (size > 0) {
        ssize_t const sent = ::send(miFd, data, size, flags);
        if (sent < 0) {
            if (errno == EINTR)
                continue;
            throw nstd::cOSErrorException("send", errno);
        }
        data += sent;
        size -= static_cast<std::size_t>(sent);
    }
}

std::size_t cPacketSocket::receiveUpTo(char* data, std::size_t size)
{
    for (;;) {
        ssize_t const received = ::recv(miFd, data, size, 0);
        if (received >= 0)
            return static_cast<std::size_t>(received);
        if (errno != EINTR)
            throw nstd::cOSErrorException("recv", errno);
    }
}
