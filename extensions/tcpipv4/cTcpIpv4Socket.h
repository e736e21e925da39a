#pragma once

#include "cDescriptor.h"
#include "cTcpIpv4Address.h"
#include "nel_core/nce/net++/cNetAbstractSocket.h"

namespace nnet {

/// One end of a TCP connection.
///
/// A peer that goes away never makes an exception: the socket is closed from then on, and its exception work,
/// now a single task, fires once to tell the connection. An end in good order is noticed when the socket
/// reads, so not as long as nobody receives; what has arrived before it comes first. A reset is noticed at
/// once.
class cTcpIpv4Socket final : public nce::cNetAbstractSocket {
public:
    /// Takes a connected descriptor over, with the address of the other end. Raises OS errors.
    cTcpIpv4Socket(cDescriptor connected, cTcpIpv4Address const& peer);
    ~cTcpIpv4Socket() override;

    nce::cNetAbstractAddress& remoteAddress() override;
    nce::cNetAbstractAddress& localAddress() override;
    unsigned int maxChunkSize() const override;
    void handleException() override;
    unsigned int read(char* data, unsigned int size, nce::cNetAbstractAddress* from) override;
    /// At most 65536 bytes, so that a fast peer leaves time for the others.
    bool readAvailable(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>& data,
                       nce::cNetAbstractAddress* from) override;
    bool canRead() const override;
    unsigned int write(char const* data, unsigned int size) override;
    void close() override;
    bool isClosed() const override;

private:
    void arm(npi::cWork& work, char const* name, unsigned int events, nstd::cAsciiString const& peer);
    unsigned int receive(char* data, unsigned int size);
    int peek() const;
    void markClosed();

    cDescriptor mDescriptor;
    cTcpIpv4Address mPeer;
    cTcpIpv4Address mLocal;
    bool mbClosed = false;
};

} // namespace nnet
