#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/std/fwd.h"

namespace npi {

/// The place where a work queue waits until the next work is due or a descriptor is ready.
class NEL_EXPORT cAbstractProcessEvents {
public:
    cAbstractProcessEvents();
    cAbstractProcessEvents(cAbstractProcessEvents const&) = delete;
    cAbstractProcessEvents& operator=(cAbstractProcessEvents const&) = delete;
    virtual ~cAbstractProcessEvents();

    /// Whether the descriptors of asynchronous I/O works are watched; the queue makes such works periodic
    /// when they are not.
    virtual bool supportsAIO() const = 0;
    /// True for a processor that runs a loop of its own and calls the queue, false for one that the queue
    /// calls.
    virtual bool isAsynchronous() const = 0;
    /// Waits at most `timeout` milliseconds on the started works among `jobs`, sets the event flags of those
    /// that became ready, and emits sigFinished. `level` tells how deep the queue's passes are nested.
    virtual void yield(unsigned int level, nstd::tList<nstd::tSharedObject<cWork>>& jobs,
                       unsigned int timeout) = 0;
    /// Cuts a running wait short, if the processor can.
    virtual void wakeUp() = 0;
    /// Drives an asynchronous processor's own loop once; nothing in the base.
    virtual void poll();

    /// Emitted when a wait has ended.
    nrmi::localSignal0<piVoid> sigFinished;
};

} // namespace npi
