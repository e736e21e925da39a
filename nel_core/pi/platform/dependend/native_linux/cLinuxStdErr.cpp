#include "nel_core/pi/platform/dependend/native_linux/cLinuxStdErr.h"

#include <cerrno>
#include <cstdio>
#include <poll.h>
#include <unistd.h>

namespace npi {
namespace {

// Whether a failed write is worth another attempt; waits for room where there is none.
bool canRetry(int error)
{
    if (error == EAGAIN) {
        pollfd room = {STDERR_FILENO, POLLOUT, 0};
        ::poll(&room, 1, -1);
    }
    return error == EAGAIN || error == EINTR;
}

} // namespace

void cLinuxStdErr::write(char const* text, unsigned int length) noexcept
{
    int const savedError = errno;
    std::fflush(stderr);
    while (length > 0) {
        auto const written = ::write(STDERR_FILENO, text, length);
        if (written > 0) {
            text += written;
            length -= static_cast<unsigned int>(written);
        } else if (written == 0 || !canRetry(errno)) {
            break;
        }
    }
    errno = savedError;
}

} // namespace npi
