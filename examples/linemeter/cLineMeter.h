#pragma once

#include "cTextCounter.h"
#include "nel_core/io/cFile.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/std/tArray.h"

/// Reads a descriptor, or files one after the other, to the end on the system's work queue and tells of the
/// progress.
class cLineMeter : public nrmi::cConnectable {
public:
    /// Schedules its works. `fd` stays the caller's; it does not block while the meter lives.
    cLineMeter(int fd, bool isFailing);
    /// Reads the files of these names, which must outlive it. One that fails is reported and left.
    cLineMeter(nstd::tArray<char const*> const& files, bool isFailing);
    ~cLineMeter() override;

    /// Whether the input has ended and every work has come to its end.
    bool isDone() const { return mbInputEnded && !mFaulty.isStarted(); }
    /// Whether an input ended because it could not be read.
    bool hasFailed() const { return mbFailed; }
    cTextCounter const& counter() const { return mCounter; }

    piVoid sltReadable();
    piVoid sltFiles();
    piVoid sltProgress();
    piVoid sltFaulty();
    piVoid sltInputError(nstd::cAbstractException const& error, bool isFromDescendant);
    piVoid sltFaultyError(nstd::cAbstractException const& error, bool isFromDescendant);

private:
    explicit cLineMeter(bool isFailing);
    bool readFile();
    void endFile();
    void endInput();

    int miFd = -1;
    int miFlags = -1;
    nstd::tArray<char const*> maFiles;
    unsigned int miNextFile = 0;
    nstd::tAutoPtr<nio::cFile> mpFile; ///< the one that is being read
    bool mbInputEnded = false;
    bool mbFailed = false;
    unsigned long long miReported = 0;
    cTextCounter mCounter;
    nstd::tArray<char> maBuffer;
    npi::cWork mInput;
    npi::cWork mProgress;
    npi::cWork mFaulty;
};
