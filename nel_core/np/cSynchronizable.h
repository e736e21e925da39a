#pragma once

#include "nel_core/export.h"
#include "nel_core/np/cLocker.h"

namespace np {

/// A base class that gives every object a mutex of its own.
///
///     np::cLocker::cLock lock(object.mutex());
///
/// Nothing is locked by itself: callers lock for as long as their sequence of calls must not be mixed with
/// others.
class NEL_EXPORT cSynchronizable {
public:
    cSynchronizable();
    /// The copy has a new mutex, and an assignment changes none.
    cSynchronizable(cSynchronizable const& other);
    cSynchronizable& operator=(cSynchronizable const& other) noexcept = default;
    ~cSynchronizable();

    /// The mutex, owned by this object; also a const object can be locked.
    [[nodiscard]] cLocker* mutex() const { return &moLocker; }

private:
    mutable cLocker moLocker;
};

} // namespace np
