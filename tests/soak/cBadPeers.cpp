#include "cBadPeers.h"

#include <sys/socket.h>
#include <unistd.h>

#include "cPeer.h"

namespace {

constexpr std::size_t kEach = 3;  // of a kind, each time
constexpr std::size_t kDeaf = 20; // at once
constexpr unsigned int kTicksPerDeaf = 10;
constexpr std::size_t kPacket = 256 * 1024;

void closeAll(std::vector<int>& fds)
{
    for (int const fd : fds)
        ::close(fd);
    fds.clear();
}

} // namespace

cBadPeers::~cBadPeers()
{
    closeAll(maToReset);
    closeAll(maToClose);
    closeAll(maDeaf);
}

void cBadPeers::tick()
{
    for (int const fd : maToReset) {
        linger const atOnce = {1, 0};
        ::setsockopt(fd, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    }
    closeAll(maToReset);
    for (int const fd : maToClose) { // having taken a part of what the server sends
        char some[1000];
        static_cast<void>(::recv(fd, some, sizeof some, 0));
    }
    closeAll(maToClose);

    for (std::size_t i = 0; i < kEach; ++i) {
        maToReset.push_back(connect());
        push(maToReset.back(), mRandom() % 4000);
        maToClose.push_back(connect());
        push(maToClose.back(), kPacket);
        ::close(connect());
    }
    pushDeaf();
}

int cBadPeers::connect()
{
    ++miCount;
    return connectTo(mServer);
}

// As much as the socket takes.
void cBadPeers::push(int fd, std::size_t size)
{
    static std::vector<char> const packet(kPacket, 'x');
    static_cast<void>(::send(fd, packet.data(), size, MSG_NOSIGNAL));
}

// They send whenever they can, and each is replaced some day.
void cBadPeers::pushDeaf()
{
    bool const isFull = maDeaf.size() == kDeaf;
    if (isFull && ++miTicks % kTicksPerDeaf == 0) {
        ::close(maDeaf.front());
        maDeaf.erase(maDeaf.begin());
    }
    if (maDeaf.size() < kDeaf)
        maDeaf.push_back(connect());
    for (int const fd : maDeaf)
        push(fd, kPacket);
}
