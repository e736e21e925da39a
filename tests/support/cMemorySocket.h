#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "nel_core/nce/net++/cNetAbstractAddress.h"
#include "nel_core/nce/net++/cNetAbstractSocket.h"

namespace ntest {

/// An address that is a mere name.
class cNamedAddress : public nce::cNetAbstractAddress {
public:
    explicit cNamedAddress(std::string name) : mName(std::move(name)) { }

    nstd::cAsciiString addrType() const override;
    void fromString(nstd::cAsciiString const& text) override;
    nstd::cAsciiString toString() const override;
    bool isEqual(nce::cNetAbstractAddress const& other) const override;
    bool isNull() const override { return mName.empty(); }
    void clear() override { mName.clear(); }
    nstd::tAutoPtr<nce::cNetAbstractAddress> clone() const override;

private:
    std::string mName;
};

class cMemorySocket;

/// What a test sees and decides of a socket in memory; outlives it.
struct cWire {
    std::deque<std::string> incoming; ///< one piece for each read; an empty one is a read without data
    std::string sender = "sender";    ///< of all pieces
    unsigned int excess = 0;          ///< added to the counts that read() and write() return
    std::function<void()> onRead;     ///< runs in each read() and readAvailable(); may raise
    unsigned int reads = 0;

    unsigned int maxChunk = 65536;
    unsigned int accept = ~0u;         ///< the most that a write takes
    std::function<void()> onWrite;     ///< runs in each write(); may raise
    std::string outgoing;              ///< what was taken
    std::vector<unsigned int> offered; ///< the sizes that write() was given

    bool isClosed = false; ///< by the other end
    unsigned int closes = 0;
    unsigned int exceptions = 0;     ///< the calls of handleException()
    cMemorySocket* socket = nullptr; ///< null once it is gone
};

/// A socket without a system behind it, whose works wait for events like those on descriptors.
class cMemorySocket : public nce::cNetAbstractSocket {
public:
    explicit cMemorySocket(cWire& wire);
    ~cMemorySocket() override { mWire.socket = nullptr; }

    /// Sets the events of the started works whose conditions hold, as a processor would that polls.
    void poll();

    nce::cNetAbstractAddress& remoteAddress() override { return mRemote; }
    nce::cNetAbstractAddress& localAddress() override { return mLocal; }
    unsigned int maxChunkSize() const override { return mWire.maxChunk; }
    void handleException() override { ++mWire.exceptions; }
    unsigned int read(char* data, unsigned int size, nce::cNetAbstractAddress* from) override;
    bool readAvailable(nstd::tArray<char>& data, nce::cNetAbstractAddress* from) override;
    bool canRead() const override { return !mWire.incoming.empty(); }
    unsigned int write(char const* data, unsigned int size) override;
    void close() override { ++mWire.closes; }
    bool isClosed() const override { return mWire.isClosed; }

private:
    cWire& mWire;
    cNamedAddress mRemote;
    cNamedAddress mLocal;
};

} // namespace ntest
