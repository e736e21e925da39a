#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/fwd.h"

namespace npi {

/// A loop that an application runs inside of a queue's: while it lives, the queue wakes its event processor
/// for changes that come from as deep as there are local loops.
class NEL_EXPORT cLocalEventLoop {
public:
    /// Belongs to `queue`, which must outlive it; null means the system's queue.
    explicit cLocalEventLoop(cWorkQueue* queue);
    cLocalEventLoop(cLocalEventLoop const&) = delete;
    cLocalEventLoop& operator=(cLocalEventLoop const&) = delete;
    ~cLocalEventLoop();

    /// Runs one cycle of the queue.
    void process();

private:
    cWorkQueue* mpQueue; ///< not owned
};

} // namespace npi
