#pragma once

#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/tAutoPtr.h"

/// Opens a file that is not there, in a work of the system's queue, and keeps what the work's action-error
/// signal tells of it.
class cRecordReader : public nrmi::cConnectable {
public:
    /// Schedules the work.
    cRecordReader();

    bool isDone() const { return !mWork.isStarted(); }
    /// The failure with everything that led to it, null when there was none.
    nstd::cAbstractException const* error() const { return mpError.get(); }

    piVoid sltRead();
    piVoid sltError(nstd::cAbstractException const& error, bool isFromDescendant);

private:
    nstd::tAutoPtr<nstd::cAbstractException> mpError;
    npi::cWork mWork;
};
