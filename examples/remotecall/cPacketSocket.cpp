#include "cPacketSocket.h"

#include <algorithm>
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>

#include "nel_core/std/cOSErrorException.h"
#include "nel_core/std/cRuntimeException.h"

namespace {

constexpr std::size_t kHeaderSize = 4;
constexpr unsigned int kFirstPiece = 64 * 1024;

void encodeLength(unsigned int length, char* header)
{
    for (std::size_t i = 0; i < kHeaderSize; ++i)
        header[i] = static_cast<char>(length >> (8 * i) & 0xff);
}

unsigned int decodeLength(char const* header)
{
    unsigned int length = 0;
    for (std::size_t i = 0; i < kHeaderSize; ++i)
        length |= static_cast<unsigned int>(static_cast<unsigned char>(header[i])) << (8 * i);
    return length;
}

void requireShort(unsigned int length)
{
    if (length <= cPacketSocket::kMaxLength)
        return;
    nucs::cLIMessage message;
    message << "$MTR$A packet of %length% bytes is too long, %max% are allowed!" << length
            << cPacketSocket::kMaxLength;
    throw nstd::cRuntimeException(message);
}

[[noreturn]] void throwGone()
{
    nucs::cLIMessage message;
    message << "$MTR$The other side is gone!";
    throw nstd::cRuntimeException(message);
}

} // namespace

cPacketSocket::~cPacketSocket()
{
    ::close(miFd);
}

void cPacketSocket::send(nstd::tArray<char> const& packet)
{
    requireShort(packet.length());
    char header[kHeaderSize];
    encodeLength(packet.length(), header);
    // Keeps the header back until the bytes follow, where the socket would send it alone.
    sendAll(header, kHeaderSize, packet.length() > 0 ? MSG_MORE : 0);
    sendAll(packet.data(true), packet.length(), 0);
}

void cPacketSocket::receive(nstd::tArray<char>& packet)
{
    if (!tryReceive(packet))
        throwGone();
}

bool cPacketSocket::tryReceive(nstd::tArray<char>& packet)
{
    char header[kHeaderSize];
    std::size_t const begun = receiveUpTo(header, kHeaderSize);
    if (begun == 0)
        return false;
    receiveAll(header + begun, kHeaderSize - begun);
    unsigned int const length = decodeLength(header);
    requireShort(length);

    // By pieces, each as large as what has come already: a length alone takes no memory.
    packet.clear();
    while (packet.length() < length) {
        unsigned int const size = std::min(length - packet.length(), std::max(packet.length(), kFirstPiece));
        unsigned int const start = packet.appendElements(size);
        receiveAll(packet.data(start, size), size);
    }
    return true;
}

void cPacketSocket::sendAll(char const* data, std::size_t size, int flags)
{
    while (size > 0) {
        ssize_t const sent = ::send(miFd, data, size, flags | MSG_NOSIGNAL);
        if (sent < 0) {
            if (errno == EINTR)
                continue;
            throw nstd::cOSErrorException("send", errno);
        }
        data += sent;
        size -= static_cast<std::size_t>(sent);
    }
}

// Gives the number of bytes received, 0 at the end of the connection.
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

void cPacketSocket::receiveAll(char* data, std::size_t size)
{
    while (size > 0) {
        std::size_t const received = receiveUpTo(data, size);
        if (received == 0)
            throwGone();
        data += received;
        size -= received;
    }
}
