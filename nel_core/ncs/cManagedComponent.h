#pragma once

#include "nel_core/export.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/std/tAutoPtr.h"

namespace ncs {

/// The module manager's record of one registered component, which it may own.
class NEL_EXPORT cManagedComponent {
public:
    /// The component stays its owner's.
    explicit cManagedComponent(cAbstractComponent& component) noexcept;
    /// Takes the component over and deletes it with the record. Without one the assertion
    /// "mpComponentGuard.get()" fails.
    explicit cManagedComponent(nstd::tAutoPtr<cAbstractComponent> component);
    cManagedComponent(cManagedComponent const&) = delete;
    cManagedComponent& operator=(cManagedComponent const&) = delete;
    ~cManagedComponent();

    /// The component. A record whose component was destroyed by somebody else is no longer found in the
    /// manager's walks and must not be asked.
    cAbstractComponent& component() const noexcept { return *mpComponent; }
    /// Whether the record has left the registry and only waits to be deleted.
    bool isErased() const noexcept { return mbErased; }

private:
    friend class cModuleMgrImpl;

    /// The component is being destroyed by somebody else: the record is erased, and does not delete it.
    void forgetComponent() noexcept;

    nstd::tAutoPtr<cAbstractComponent> mpComponentGuard;
    cAbstractComponent* mpComponent; ///< null once it was destroyed by somebody else
    bool mbErased = false;
};

} // namespace ncs
