#pragma once

#include "nel_core/pi/cAbstractProcessEvents.h"

namespace npi {

/// An event processor for applications that drive a queue from a loop of their own: it waits only while
/// there are no jobs, and watches no descriptors.
class NEL_EXPORT cLocalEventProcessor : public cAbstractProcessEvents {
public:
    cLocalEventProcessor();
    ~cLocalEventProcessor() override;

    bool supportsAIO() const override;
    bool isAsynchronous() const override;
    /// Emits sigFinished, with jobs at once, without any after `timeout` milliseconds or wakeUp().
    void yield(unsigned int level, nstd::tList<nstd::tSharedObject<cWork>>& jobs,
               unsigned int timeout) override;
    /// Ends the running wait, or the next one, early.
    void wakeUp() override;

private:
    void waitUntilWoken(unsigned int timeout);

    bool mbWakeUp = false;
};

} // namespace npi
