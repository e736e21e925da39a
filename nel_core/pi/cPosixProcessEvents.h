#pragma once

#include "nel_core/pi/cAbstractProcessEvents.h"
#include "nel_core/std/tAutoPtr.h"

namespace npi {

/// Waits with poll() on the descriptors of the started asynchronous I/O works, with select() when there are
/// none. The queue calls it; a running wait cannot be cut short.
class NEL_EXPORT cPosixProcessEvents : public cAbstractProcessEvents {
public:
    cPosixProcessEvents();
    ~cPosixProcessEvents() override;

    bool supportsAIO() const override;
    bool isAsynchronous() const override;
    /// Returns at once, without a signal, when `timeout` is 0. A time-out, an interrupted wait and a wait
    /// that fails mark no work, nor does one while whose works are collected one dies; a failing one takes at
    /// least some milliseconds. A descriptor in error, hung up or closed counts as ready whatever the work
    /// waits for. Raises a bug for a started work whose data names no descriptors.
    void yield(unsigned int level, nstd::tList<nstd::tSharedObject<cWork>>& jobs,
               unsigned int timeout) override;
    void wakeUp() override;

private:
    class cDescriptorTable;

    nstd::tAutoPtr<cDescriptorTable> mpTable;
};

} // namespace npi
