#pragma once

#include "nel_core/export.h"
#include "nel_core/io/fwd.h"
#include "nel_core/nce/fwd.h"
#include "nel_core/pi/cDebugStdErr.h"
#include "nel_core/pi/cGlobalCaches.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/ucs/cAbstractEnDec.h"

namespace npi {

class cSystemImpl;

/// The root of the framework: everything of which a process has one.
///
/// npi::system() gives access and builds the system when it is first called, without locking: that call comes
/// from the main thread, before other threads use the framework. An application then calls setApp(), runs
/// exec() until it decides to stop, and ends with cleanup(). Without cleanup() the system lives as long as
/// the process.
class NEL_EXPORT cSystem {
public:
    /// What conversions use when they are not told otherwise.
    class NEL_EXPORT cDefaults {
    public:
        cDefaults(nstd::cNumberConversionFormat& format, nucs::cAbstractEnDec& codec);

        nstd::cNumberConversionFormat& numberFormat;
        nucs::cAbstractEnDec& enDec;
    };

    cSystem(cSystem const&) = delete;
    cSystem& operator=(cSystem const&) = delete;

    /// One cycle of the work queue: triggers what is due and waits at most until the next work is. Builds the
    /// system where there is none; raises an unsupported operation while it is torn down.
    static void exec();
    /// The application object; raises a bug when none is set or there is no system.
    static cAbstractNELApp* app();
    /// Stores the application object, which stays the caller's. Does nothing when there is no system.
    static void setApp(cAbstractNELApp* app);
    /// Tears the system down, the core extensions before anything else; the next npi::system() builds a new
    /// one. Does nothing when there is no system or it is going away already. Raises an unsupported
    /// operation, and changes nothing, inside exec(), inside a work of the queue and while core extensions
    /// are loaded or cleared.
    static void cleanup();

    cDefaults defaults;
    nio::cFs& fs;                           ///< used wherever none is given
    nce::cCoreExtensionMgr& coreExtensions; ///< empty at first; an application adds what it needs
    nucs::cLILocale& locale;                ///< translates the messages that are written to an output
    cWorkQueue& workQueue;
    cDebugStdErr& debug; ///< shared between threads: lock its mutex() for each entry
    cGlobalCaches& caches;

private:
    explicit cSystem(cSystemImpl& impl);
    friend NEL_EXPORT cSystem& system();
};

/// The system; the first call builds it. A build that fails leaves nothing behind, and the next call tries
/// again. Calling it from a constructor of the system's own members aborts.
NEL_EXPORT cSystem& system();

} // namespace npi
