#pragma once

#include <cstddef>

#include "nel_core/std/tArray.h"

/// Sends and receives packets of bytes over a connected stream socket of any family.
///
/// On the wire a packet is its length in four bytes, the lowest one first, and its bytes. Both operations
/// wait until they are through; an interrupted system call is continued, and no SIGPIPE is raised. Failures
/// of the system raise nstd::cOSErrorException. After any failure the connection is of no use any more, save
/// for a packet that was too long to be sent.
class cPacketSocket {
public:
    /// The longest packet, in bytes.
    static constexpr unsigned int kMaxLength = 16 * 1024 * 1024;

    /// Takes the descriptor over.
    explicit cPacketSocket(int fd) : miFd(fd) { }
    cPacketSocket(cPacketSocket const&) = delete;
    cPacketSocket& operator=(cPacketSocket const&) = delete;
    /// Closes the descriptor; the other side sees the end of the connection.
    ~cPacketSocket();

    /// Sends one packet. Raises nstd::cRuntimeException, and sends nothing, when it is too long.
    void send(nstd::tArray<char> const& packet);
    /// Waits for a packet; raises nstd::cRuntimeException when the other side is gone or announces one that
    /// is too long.
    void receive(nstd::tArray<char>& packet);
    /// The same; false when the other side has closed the connection behind its last packet.
    bool tryReceive(nstd::tArray<char>& packet);

private:
    void sendAll(char const* data, std::size_t size, int flags);
    std::size_t receiveUpTo(char* data, std::size_t size);
    void receiveAll(char* data, std::size_t size);

    int const miFd;
};
