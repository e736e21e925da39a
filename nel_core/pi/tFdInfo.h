#pragma once

#include "nel_core/pi/fwd.h"

namespace npi {

/// A file descriptor and the conditions on it that a work waits for.
struct tFdInfo {
    enum Events : unsigned int {
        evReadable = 1,
        evWritable = 2,
        evError = 4, ///< an error or a hang-up; these end a wait in any case
    };

    /// `descriptor` stays the caller's; `eventBits` joins values of Events.
    tFdInfo(int descriptor, unsigned int eventBits) : fd(descriptor), events(eventBits) { }
    bool operator==(tFdInfo const& other) const { return fd == other.fd && events == other.events; }
    bool operator!=(tFdInfo const& other) const { return !(*this == other); }

    int fd;
    unsigned int events;
};

} // namespace npi
