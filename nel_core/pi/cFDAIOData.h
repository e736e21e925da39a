#pragma once

#include "nel_core/pi/cAbstractAIOData.h"
#include "nel_core/pi/tFdInfo.h"
#include "nel_core/std/tVector.h"

namespace npi {

/// The file descriptors that a work waits for.
///
/// They stay their owner's and may be changed between two waits. Take a descriptor out, or the data from the
/// work, before the descriptor is closed: a closed one is reported as an error in every cycle, and its number
/// may come to mean another file.
class NEL_EXPORT cFDAIOData : public cAbstractAIOData {
public:
    cFDAIOData();
    ~cFDAIOData() override;

    cFDAIOData* isFDAIOData() override;

    /// Appends a descriptor; `events` joins values of tFdInfo::Events.
    void addFd(int fd, unsigned int events);
    /// The descriptors, in the order in which they came. To ask for them as something to be changed costs:
    /// from then on every wait looks at all works anew.
    nstd::tVector<tFdInfo>& fds()
    {
        mbExposed = true;
        return maFds;
    }
    nstd::tVector<tFdInfo> const& fds() const { return maFds; }

    /// Whether somebody may change them without being noticed.
    bool isExposed() const { return mbExposed; }

private:
    nstd::tVector<tFdInfo> maFds;
    bool mbExposed = false;
};

} // namespace npi
