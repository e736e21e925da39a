#pragma once

#include "nel_core/export.h"
#include "nel_core/nce/cAbstractCoreExtension.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/std/tAutoPtr.h"

namespace nce {

/// The record of one core extension: an extension that it owns, or a plug-in that it owns and that provides
/// the extension.
class NEL_EXPORT cExtensionPair {
public:
    /// Takes the extension over; without one an assertion fails.
    explicit cExtensionPair(nstd::tAutoPtr<cAbstractCoreExtension> extension);
    /// Takes the plug-in and its class loader over, which go when its coreExtension() raises; without a
    /// plug-in an assertion fails.
    explicit cExtensionPair(nstd::tAutoPtr<ncs::cAbstractPlugIn> plugIn);
    cExtensionPair(cExtensionPair const&) = delete;
    cExtensionPair& operator=(cExtensionPair const&) = delete;
    /// Deletes the plug-in, then its class loader, unless that has made modules that still live; or the
    /// extension.
    ~cExtensionPair();

    cAbstractCoreExtension const& extension() const noexcept { return *mpExtension; }

private:
    cAbstractCoreExtension const* mpExtension;
    ncs::cAbstractPlugIn* mpPlugIn = nullptr; ///< owned; null when the extension was handed over itself
    nstd::tAutoPtr<cAbstractCoreExtension> mpOwnedExtension;
};

} // namespace nce
