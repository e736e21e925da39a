#pragma once

#include "nel_core/io/cFile.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/std/cTime.h"
#include "nel_core/std/piTypes.h"

namespace nio {

/// Notices when a file is modified, by looking at its modification time again and again.
///
/// The file stays open: a file that is renamed onto its name later is another one and not noticed. The time
/// is known to the second. The watch is driven by a work of the system's work queue and belongs to that
/// thread; a slot of the signal may delete it.
class NEL_EXPORT cFileWatch : public nrmi::cConnectable {
public:
    /// Opens the file, which the system's file system finds. Nothing is looked at before start(). Raises
    /// cIOExceptions::throwUnableOpenFile().
    explicit cFileWatch(nucs::cString const& path);
    cFileWatch(cFileWatch const&) = delete;
    cFileWatch& operator=(cFileWatch const&) = delete;
    ~cFileWatch() override;

    /// Polls every `intervalMs` milliseconds.
    void start(unsigned int intervalMs);
    /// Polls no more until the next start().
    void stop();

    /// Emitted when a poll finds another modification time than the one before.
    nrmi::localSignal0<piVoid> sigFileChanged;

    /// Looks at the file now. Raises nstd::cOSErrorException "stat".
    piVoid poll();

private:
    cFile mFile;
    nstd::cTime mLastModification; ///< UTC
    npi::cWork mWork;
};

} // namespace nio
