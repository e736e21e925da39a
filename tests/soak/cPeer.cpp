#include "cPeer.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <random>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t kPeriod = 65521;
constexpr std::size_t kPiece = 16 * 1024;

// The byte at some place of a stream, and those behind it: at least kPiece.
char const* bytesAt(unsigned int seed, unsigned long long place)
{
    static std::vector<char> const table = [] {
        std::vector<char> bytes(kPeriod + kPiece);
        std::mt19937 random(1);
        std::generate_n(bytes.begin(), kPeriod, [&random] { return static_cast<char>(random()); });
        std::copy_n(bytes.begin(), kPiece, bytes.begin() + kPeriod);
        return bytes;
    }();
    return table.data() + (seed * 7919ULL + place) % kPeriod;
}

} // namespace

int connectTo(sockaddr_in const& address)
{
    int const fd = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (fd < 0)
        throw std::system_error(errno, std::generic_category(), "socket");
    if (::connect(fd, reinterpret_cast<sockaddr const*>(&address), sizeof address) == 0
        || errno == EINPROGRESS)
        return fd;
    int const code = errno;
    ::close(fd);
    throw std::system_error(code, std::generic_category(), "connect");
}

cPeer::~cPeer()
{
    ::close(miFd);
}

void cPeer::begin(unsigned int size)
{
    miEnd += size;
    mBegin = tClock::now();
}

cPeer::State cPeer::step()
{
    bool const wasWaiting = isWaiting();
    if (!sendMore())
        return fail("send");
    if (!receiveMore())
        return fail("recv");
    return wasWaiting && !isWaiting() ? stComplete : stWaiting;
}

double cPeer::elapsed() const
{
    return std::chrono::duration<double, std::milli>(tClock::now() - mBegin).count();
}

bool cPeer::sendMore()
{
    while (miSent != miEnd) {
        auto const size = static_cast<std::size_t>(std::min<unsigned long long>(miEnd - miSent, kPiece));
        ssize_t const count = ::send(miFd, bytesAt(miSeed, miSent), size, MSG_NOSIGNAL);
        if (count < 0)
            return errno == EAGAIN;
        miSent += static_cast<unsigned long long>(count);
    }
    return true;
}

bool cPeer::receiveMore()
{
    char data[kPiece];
    for (;;) {
        ssize_t const count = ::recv(miFd, data, sizeof data, 0);
        if (count < 0)
            return errno == EAGAIN;
        if (count == 0)
            errno = 0; // the end
        if (count == 0 || !check(data, static_cast<std::size_t>(count)))
            return false;
    }
}

bool cPeer::check(char const* data, std::size_t size)
{
    bool const isRight =
        size <= miSent - miReceived && std::memcmp(data, bytesAt(miSeed, miReceived), size) == 0;
    if (!isRight)
        msFailure = "what has come back behind byte " + std::to_string(miReceived) + " was not sent";
    miReceived += size;
    return isRight;
}

cPeer::State cPeer::fail(char const* what)
{
    if (msFailure.empty())
        msFailure = std::string(what) + " behind byte " + std::to_string(miReceived) + ": "
                    + (errno != 0 ? std::strerror(errno) : "the server has closed the connection");
    return stFailed;
}
