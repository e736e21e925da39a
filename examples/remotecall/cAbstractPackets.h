#pragma once

#include <cstddef>

#include "nel_core/std/tArray.h"

/// Sends and receives packets of bytes over a connection.
///
/// On the wire a packet is its length in four bytes, the lowest one first, and its bytes. Both operations
/// wait until they are through. After any failure the connection is of no use any more, save for a packet
/// that was too long to be sent.
class cAbstractPackets {
public:
    /// The longest packet, in bytes.
    static constexpr unsigned int kMaxLength = 16 * 1024 * 1024;

    virtual ~cAbstractPackets();

    /// Sends one packet. Raises nstd::cRuntimeException, and sends nothing, when it is too long.
    void send(nstd::tArray<char> const& packet);
    /// Waits for a packet; raises nstd::cRuntimeException when the other side is gone or announces one that
    /// is too long.
    void receive(nstd::tArray<char>& packet);
    /// The same; false when the other side has closed the connection behind its last packet.
    bool tryReceive(nstd::tArray<char>& packet);

protected:
    enum Order { orderMore, orderLast };

    cAbstractPackets() = default;
    cAbstractPackets(cAbstractPackets const&) = delete;
    cAbstractPackets& operator=(cAbstractPackets const&) = delete;

    [[noreturn]] static void throwGone();

private:
    /// Sends the bytes; behind orderMore those of the same packet follow, for which they may be kept.
    virtual void sendAll(char const* data, std::size_t size, Order order) = 0;
    /// Waits for at least one byte. Gives the number of bytes received, 0 at the end of the connection.
    virtual std::size_t receiveUpTo(char* data, std::size_t size) = 0;

    void receiveAll(char* data, std::size_t size);
};
