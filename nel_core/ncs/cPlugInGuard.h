#pragma once

#include "nel_core/export.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/std/tAutoPtr.h"

namespace ncs {

/// Owns a plug-in together with the class loader that it came from.
class NEL_EXPORT cPlugInGuard {
public:
    /// Takes the plug-in over, and its class loader if it has one; an empty pointer guards nothing.
    explicit cPlugInGuard(nstd::tAutoPtr<cAbstractPlugIn> plugIn) noexcept;
    cPlugInGuard(cPlugInGuard const&) = delete;
    cPlugInGuard& operator=(cPlugInGuard const&) = delete;
    /// Deletes the plug-in, and then its class loader, which unloads the shared object, unless that has made
    /// modules that still live.
    ~cPlugInGuard();

    cAbstractPlugIn* plugIn() const noexcept { return mpPlugIn; }
    cAbstractPlugIn* operator->() const noexcept { return mpPlugIn; }
    /// Gives the plug-in away.
    [[nodiscard]] nstd::tAutoPtr<cAbstractPlugIn> release() noexcept;

private:
    cAbstractPlugIn* mpPlugIn; ///< owned
};

} // namespace ncs
