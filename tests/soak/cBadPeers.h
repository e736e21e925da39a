#pragma once

#include <random>
#include <vector>

#include <netinet/in.h>

/// Connections that behave badly: some never read, some are reset, some end in the middle of a packet, and
/// some are gone before the server knows them.
class cBadPeers {
public:
    explicit cBadPeers(sockaddr_in const& server) : mServer(server) { }
    cBadPeers(cBadPeers const&) = delete;
    cBadPeers& operator=(cBadPeers const&) = delete;
    ~cBadPeers();

    /// To be called every 100 ms: those that came with the last call go, new ones come.
    void tick();
    /// How many connections have been made.
    unsigned int count() const { return miCount; }

private:
    int connect();
    void push(int fd, std::size_t size);
    void pushDeaf();

    sockaddr_in const mServer;
    std::vector<int> maToReset;
    std::vector<int> maToClose;
    std::vector<int> maDeaf; ///< the oldest one first
    unsigned int miTicks = 0;
    unsigned int miCount = 0;
    std::mt19937 mRandom{2};
};
