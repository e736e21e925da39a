#include "nel_core/ncs/cManagedComponent.h"

#include <utility>

#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/std/piAssert.h"

namespace ncs {

cManagedComponent::cManagedComponent(cAbstractComponent& component) noexcept : mpComponent(&component) { }

cManagedComponent::cManagedComponent(nstd::tAutoPtr<cAbstractComponent> component)
    : mpComponentGuard(std::move(component)),
      mpComponent(mpComponentGuard.get())
{
    NEL_ASSERT_AT(mpComponentGuard.get(), "nel_core/ncs/cManagedComponent", 20);
}

// A component that does not know its record leaves the manager alone when it goes.
cManagedComponent::~cManagedComponent()
{
    if (mpComponent && mpComponent->mpRecord == this)
        mpComponent->mpRecord = nullptr;
}

void cManagedComponent::forgetComponent() noexcept
{
    static_cast<void>(mpComponentGuard.release());
    mpComponent = nullptr;
    mbErased = true;
}

} // namespace ncs
