#pragma once

#include "cTextCounter.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/std/tArray.h"

/// Reads a descriptor to its end on the system's work queue and tells of the progress.
class cLineMeter : public nrmi::cConnectable {
public:
    /// Schedules its works. `fd` stays the caller's; it does not block while the meter lives.
    cLineMeter(int fd, bool isFailing);
    ~cLineMeter() override;

    /// Whether the input has ended and every work has come to its end.
    bool isDone() const { return mbInputEnded && !mFaulty.isStarted(); }
    /// Whether the input ended because it could not be read.
    bool hasFailed() const { return mbFailed; }
    cTextCounter const& counter() const { return mCounter; }

    piVoid sltReadable();
    piVoid sltProgress();
    piVoid sltFaulty();
    piVoid sltInputError(nstd::cAbstractException const& error, bool isFromDescendant);
    piVoid sltFaultyError(nstd::cAbstractException const& error, bool isFromDescendant);

private:
    void endInput();

    int const miFd;
    int miFlags;
    bool mbInputEnded = false;
    bool mbFailed = false;
    unsigned long long miReported = 0;
    cTextCounter mCounter;
    nstd::tArray<char> maBuffer;
    npi::cWork mInput;
    npi::cWork mProgress;
    npi::cWork mFaulty;
};
