#pragma once

#include "nel_core/export.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tHash.h"
#include "nel_core/ucs/cString.h"

namespace npi {

/// Caches that are shared by the whole process. Each exists only after it was asked for.
class NEL_EXPORT cGlobalCaches {
public:
    /// From a path as it was given to its normalised form.
    typedef nstd::tHash<nucs::cString, nucs::cString> tPathFixupHash;

    cGlobalCaches();
    ~cGlobalCaches();
    cGlobalCaches(cGlobalCaches const&) = delete;
    cGlobalCaches& operator=(cGlobalCaches const&) = delete;

    /// Installs an empty cache in place of an earlier one, and returns it. It stays owned by this object.
    tPathFixupHash& createPathFixupHash();
    /// The cache, or null.
    tPathFixupHash* hasPathFixupHash() const;
    /// Deletes all caches.
    void clear();

private:
    nstd::tAutoPtr<tPathFixupHash> mpPathFixupHash;
};

} // namespace npi
