#pragma once

#include "nel_core/export.h"
#include "nel_core/nce/fwd.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/std/fwd.h"

namespace nce {

/// One end of a transport, as a connection uses it.
///
/// A socket has three works, stopped at first, which it makes fire when it can be read, when it can be
/// written, and when it is in an exceptional condition. Nothing here blocks.
class NEL_EXPORT cNetAbstractSocket {
public:
    cNetAbstractSocket();
    cNetAbstractSocket(cNetAbstractSocket const&) = delete;
    cNetAbstractSocket& operator=(cNetAbstractSocket const&) = delete;
    virtual ~cNetAbstractSocket();

    /// The addresses of the other end and of this one; the socket's.
    virtual cNetAbstractAddress& remoteAddress() = 0;
    virtual cNetAbstractAddress& localAddress() = 0;
    /// The largest number of bytes that write() may be given.
    virtual unsigned int maxChunkSize() const = 0;
    /// The exception work has fired and the socket is not closed.
    virtual void handleException() = 0;
    /// Reads at most `size` bytes into `data` and returns how many; 0 when there is nothing. `from` becomes
    /// the sender unless it is null.
    virtual unsigned int read(char* data, unsigned int size, cNetAbstractAddress* from) = 0;
    /// Replaces `data` by what there is; false when there is nothing. `from` becomes the sender unless it is
    /// null.
    virtual bool readAvailable(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>& data,
                               cNetAbstractAddress* from) = 0;
    virtual bool canRead() const = 0;
    /// Takes at most `size` bytes and returns how many, never more than that.
    virtual unsigned int write(char const* data, unsigned int size) = 0;
    /// May be called several times.
    virtual void close() = 0;
    /// Whether the connection is gone: closed by the other end, or failed.
    virtual bool isClosed() const = 0;

    /// Adds the three works to a queue.
    void schedule(npi::cWorkQueue& queue);
    npi::cWork& readableWork() noexcept { return mReadable; }
    npi::cWork& writableWork() noexcept { return mWritable; }
    npi::cWork& exceptionWork() noexcept { return mException; }

private:
    npi::cWork mReadable;
    npi::cWork mWritable;
    npi::cWork mException;
};

} // namespace nce
