#pragma once

#include "cAbstractPackets.h"

/// Packets over a connected stream socket of any family. Blocks; an interrupted system call is continued, and
/// no SIGPIPE is raised. Failures of the system raise nstd::cOSErrorException.
class cPacketSocket : public cAbstractPackets {
public:
    /// Takes the descriptor over.
    explicit cPacketSocket(int fd) : miFd(fd) { }
    /// Closes the descriptor; the other side sees the end of the connection.
    ~cPacketSocket() override;

private:
    void sendAll(char const* data, std::size_t size, Order order) override;
    std::size_t receiveUpTo(char* data, std::size_t size) override;

    int const miFd;
};
