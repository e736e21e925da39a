#pragma once

#include "nel_core/export.h"
#include "nel_core/ncs/cPlugInGuard.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tPtrList.h"
#include "nel_core/ucs/fwd.h"

namespace ncs {

/// Loads plug-ins and keeps those that are registered.
///
/// Only exceptions of the library may leave a plug-in, and it must have taken back what it gave away (works,
/// connections, codecs) before it is destroyed: its code goes with it. Used by one thread.
class NEL_EXPORT cPlugInMgr {
public:
    cPlugInMgr();
    cPlugInMgr(cPlugInMgr const&) = delete;
    cPlugInMgr& operator=(cPlugInMgr const&) = delete;
    /// Unloads the registered plug-ins in the order of their registration.
    virtual ~cPlugInMgr();

    /// Loads a module by name, with or without a directory: "dir/gauge" is in dir/libgauge.so. Names without
    /// a directory are searched for by the operating system; a name must not hold a dot. The frame is for the
    /// plug-in; without one an empty frame is made. The guard is not registered. Raises the errors of the
    /// class loader (npi::cAbstractClassLoader), with nothing loaded.
    [[nodiscard]] nstd::tAutoPtr<cPlugInGuard> loadPlugIn(nucs::cString const& name,
                                                          nsa::cReferenceFrame& frame);
    [[nodiscard]] nstd::tAutoPtr<cPlugInGuard> loadPlugIn(nucs::cString const& name);
    /// Takes the guard over; an empty pointer is ignored.
    void registerPlugIn(nstd::tAutoPtr<cPlugInGuard> guard);
    /// Unloads every registered plug-in that is this very object. An exception of its destructor ends the
    /// process.
    void unloadPlugIn(cAbstractPlugIn* plugIn) noexcept;
    /// Unloads the registered plug-ins in the order of their registration.
    void unloadAll() noexcept;

    nstd::tPtrList<cPlugInGuard> const& plugIns() const noexcept { return mPlugIns; }

private:
    nstd::tPtrList<cPlugInGuard> mPlugIns; ///< owned
};

} // namespace ncs
