#pragma once

#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"

/// Tells on the system's work queue when SIGINT or SIGTERM has come. They are blocked as signals while it
/// lives and come through a descriptor instead, so that what follows runs between other works and may call
/// everything.
class cEndSignals : public nrmi::cConnectable {
public:
    /// Schedules its work. Raises OS errors.
    cEndSignals();
    ~cEndSignals() override;

    /// Whether one of them has come.
    bool hasCome() const { return mbHasCome; }

    piVoid sltReadable();

private:
    int miFd;
    bool mbHasCome = false;
    npi::cWork mWork;
};
