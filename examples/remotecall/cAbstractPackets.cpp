#include "cAbstractPackets.h"

#include <algorithm>

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
    if (length <= cAbstractPackets::kMaxLength)
        return;
    nucs::cLIMessage message;
    message << "$MTR$A packet of %length% bytes is too long, %max% are allowed!" << length
            << cAbstractPackets::kMaxLength;
    throw nstd::cRuntimeException(message);
}

} // namespace

cAbstractPackets::~cAbstractPackets() = default;

void cAbstractPackets::send(nstd::tArray<char> const& packet)
{
    requireShort(packet.length());
    char header[kHeaderSize];
    encodeLength(packet.length(), header);
    sendAll(header, kHeaderSize, packet.length() > 0 ? orderMore : orderLast);
    if (packet.length() > 0)
        sendAll(packet.data(), packet.length(), orderLast);
}

void cAbstractPackets::receive(nstd::tArray<char>& packet)
{
    if (!tryReceive(packet))
        throwGone();
}

bool cAbstractPackets::tryReceive(nstd::tArray<char>& packet)
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

void cAbstractPackets::throwGone()
{
    nucs::cLIMessage message;
    message << "$MTR$The other side is gone!";
    throw nstd::cRuntimeException(message);
}

void cAbstractPackets::receiveAll(char* data, std::size_t size)
{
    while (size > 0) {
        std::size_t const received = receiveUpTo(data, size);
        if (received == 0)
            throwGone();
        data += received;
        size -= received;
    }
}
