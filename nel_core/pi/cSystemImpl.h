#pragma once

#include "nel_core/io/cFs.h"
#include "nel_core/nce/cCoreExtensionMgr.h"
#include "nel_core/pi/cDebugStdErr.h"
#include "nel_core/pi/cGlobalCaches.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cLILocale.h"

namespace npi {

/// What the system object is made of. Internal to the library.
///
/// The order of the members is the order of their construction and, reversed, of their destruction. None of
/// their constructors may ask for npi::system().
class cSystemImpl {
public:
    /// Makes the members and gives the work queue its event processor.
    cSystemImpl();
    /// Empties the work queue while everything is still there for the handlers that this calls, then takes
    /// the members apart.
    ~cSystemImpl();
    cSystemImpl(cSystemImpl const&) = delete;
    cSystemImpl& operator=(cSystemImpl const&) = delete;

    nstd::cNumberConversionFormat numberFormat;
    nucs::cEnDecUTF8 enDec;
    nio::cFs fs;
    nce::cCoreExtensionMgr coreExtensions;
    nucs::cLILocale locale{nullptr};
    cWorkQueue workQueue;
    cDebugStdErr debug;
    cGlobalCaches caches;
    cAbstractNELApp* app = nullptr; ///< not owned

private:
    void emptyWorkQueue() noexcept;
};

/// Says where debug entries go from now on; null for standard error. Internal to the system object.
void setSystemDebugOutput(cDebugStdErr* out) noexcept;

} // namespace npi
