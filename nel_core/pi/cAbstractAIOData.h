#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/fwd.h"

namespace npi {

/// What an asynchronous I/O work waits for, and whether it has happened.
class NEL_EXPORT cAbstractAIOData {
public:
    cAbstractAIOData() = default;
    cAbstractAIOData(cAbstractAIOData const&) = delete;
    cAbstractAIOData& operator=(cAbstractAIOData const&) = delete;
    virtual ~cAbstractAIOData();

    /// This object when it names file descriptors, else null.
    virtual cFDAIOData* isFDAIOData();

    /// The event processor sets the flag when the awaited condition holds; the queue clears it when it
    /// triggers the work.
    void setEvent(bool event) { mbEvent = event; }
    bool isEvent() const { return mbEvent; }
    /// This object as one that names file descriptors; raises a bug when it is none.
    cFDAIOData& fdAIOData();

private:
    bool mbEvent = false;
};

} // namespace npi
