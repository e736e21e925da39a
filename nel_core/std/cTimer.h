#pragma once

#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/std/piTypes.h"

namespace nstd {

/// Emits a signal after a delay, or again and again.
///
/// It is driven by a work of the system's work queue and belongs to that thread; a slot of the signal may
/// delete the timer.
class NEL_EXPORT cTimer : public nrmi::cConnectable {
public:
    /// An idle timer; makes the system if there is none.
    cTimer();
    /// A timer that fires every `ms` milliseconds.
    explicit cTimer(unsigned int ms);
    ~cTimer() override;

    /// Fires every `ms` milliseconds, for the first time in `ms` milliseconds.
    void setInterval(unsigned int ms);
    /// Fires once in `ms` milliseconds.
    void setSingleShot(unsigned int ms);
    /// Makes the timer idle.
    void reset();

    /// Whether the timer has fired since it was last set or reset.
    bool isElapsed() const noexcept { return mbElapsed; }
    bool operator()() const noexcept { return mbElapsed; }

    /// Emitted when the timer fires.
    nrmi::localSignal0<piVoid> sigTimer;

    /// Called by the work when it is due.
    piVoid sltPoll();

private:
    void start(unsigned int ms, npi::cWork::Type type);

    bool mbElapsed = false;
    npi::cWork mWork;
};

} // namespace nstd
