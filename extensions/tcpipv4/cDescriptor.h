#pragma once

#include "nel_core/pi/cAbstractAIOData.h"
#include "nel_core/std/tAutoPtr.h"

namespace nnet {

class cTcpIpv4Address;

/// Raises nstd::cOSErrorException; `code` is the errno that was read right after the call.
[[noreturn]] void throwOSError(char const* operation, int code);

/// The only owner of the descriptor of a TCP socket: it is closed once, when its owner lets go of it.
class cDescriptor {
public:
    /// None.
    cDescriptor() noexcept = default;
    /// Takes a descriptor over; negative for none.
    explicit cDescriptor(int fd) noexcept : miFd(fd) { }
    cDescriptor(cDescriptor&& other) noexcept : miFd(other.miFd) { other.miFd = kNone; }
    /// Closes what was held.
    cDescriptor& operator=(cDescriptor&& other) noexcept;
    ~cDescriptor();

    /// A new socket, non-blocking and closed on exec. Raises the OS error "socket".
    [[nodiscard]] static cDescriptor createStream();
    /// Switches an option on; raises the OS error "setsockopt".
    void setOption(int level, int option);
    /// Makes it non-blocking and closed on exec; raises the OS error "fcntl".
    void setFlags();
    /// The pending error of the socket, which is none afterwards; 0 when there is none.
    [[nodiscard]] int takeError();
    /// Becomes the address of this end, or of the other one. Gives the error number, 0 for success.
    [[nodiscard]] int readLocalAddress(cTcpIpv4Address& address) const;
    [[nodiscard]] int readPeerAddress(cTcpIpv4Address& address) const;
    /// What a work needs to wait for `events`, joined of npi::tFdInfo::Events.
    [[nodiscard]] nstd::tAutoPtr<npi::cAbstractAIOData> createIOData(unsigned int events) const;

    explicit operator bool() const noexcept { return miFd >= 0; }
    int get() const noexcept { return miFd; }

private:
    static constexpr int kNone = -1;

    int miFd = kNone;
};

} // namespace nnet
