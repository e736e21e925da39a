#include "nel_core/ncs/cAbstractComponent.h"

#include "nel_core/ncs/cInterfaceDep.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/ncs/cModuleMgrImpl.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/std/piAssert.h"

namespace ncs {
namespace {

// What it tells of goes on, also when it cannot be told.
void tell(char const* text, unsigned int line) noexcept
try {
    npi::cDebugEntry(NEL_SOURCE_TAG, line) << text;
} catch (...) {
    return;
}

// Takes out one entry: the last, because those who came last mostly go first.
void eraseLast(nstd::tList<cAbstractComponent*>& list, cAbstractComponent const* component)
{
    for (auto at = list.end(); at != list.begin();) {
        --at;
        if (*at == component) {
            list.erase(at);
            return;
        }
    }
}

} // namespace

/// A walk over the dependencies of a component, from the first to the one that was the last when it began.
/// It lives on the stack of whoever walks; the component tells it of what is removed, and of its own end.
class cAbstractComponent::cDepWalk {
public:
    // The compiler cannot see that the destructor takes the address back wherever the component still lives.
#if __GNUC__ >= 12
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdangling-pointer"
#endif
    explicit cDepWalk(cAbstractComponent& component)
        : mpComponent(&component),
          mpOuter(component.mpDepWalks),
          miEnd(component.maInterfaceDeps.size())
    {
        component.mpDepWalks = this;
    }
#if __GNUC__ >= 12
#pragma GCC diagnostic pop
#endif
    cDepWalk(cDepWalk const&) = delete;
    cDepWalk& operator=(cDepWalk const&) = delete;
    ~cDepWalk()
    {
        if (mpComponent)
            mpComponent->mpDepWalks = mpOuter;
    }

    /// The next dependency, null at the end.
    cInterfaceDep* next()
    {
        return mpComponent && miNext < miEnd ? mpComponent->maInterfaceDeps[miNext++] : nullptr;
    }
    cDepWalk* outer() const
    {
        return mpOuter;
    }
    void notifyRemoved(unsigned int index)
    {
        miNext -= index < miNext ? 1 : 0;
        miEnd -= index < miEnd ? 1 : 0;
    }
    void notifyComponentGone()
    {
        mpComponent = nullptr;
    }

private:
    cAbstractComponent* mpComponent; ///< null once it is gone
    cDepWalk* const mpOuter;
    unsigned int miNext = 0;
    unsigned int miEnd;
};

cAbstractComponent::cAbstractComponent(cModuleMgr& manager) : mpModuleMgr(&manager)
{
    mRemoteExceptions.setGuardMode(nstd::tPtrList<nstd::cAbstractException>::gmOwn);
}

cAbstractComponent::cAbstractComponent(cModuleMgr& manager, nsa::cReferenceFrame&)
    : cAbstractComponent(manager)
{
}

cAbstractComponent::~cAbstractComponent()
{
    for (auto* walk = mpDepWalks; walk; walk = walk->outer())
        walk->notifyComponentGone();
    for (unsigned int i = 0; i < maInterfaceDeps.size(); ++i)
        disown(*maInterfaceDeps[i]);
    leaveOthers();
    if (mpRecord)
        mpModuleMgr->mpImpl->forget(*this);
}

bool cAbstractComponent::isPlugIn() const
{
    return false;
}

bool cAbstractComponent::isComponent() const
{
    return true;
}

void cAbstractComponent::storeSettings(nsa::cAbstractSerializer&) const { }

void cAbstractComponent::loadSettings(nsa::cAbstractDeserializer&) { }

void cAbstractComponent::applySettings() { }

nstd::cAsciiString cAbstractComponent::isSpecific() const
{
    return nstd::cAsciiString();
}

bool cAbstractComponent::explicitLocal() const
{
    return false;
}

unsigned int cAbstractComponent::fixedQueueID() const
{
    return 1;
}

unsigned int cAbstractComponent::fixedModuleID() const
{
    return 0;
}

bool cAbstractComponent::isLocal() const
{
    return true;
}

void cAbstractComponent::notifyComponentRegistered() { }

void cAbstractComponent::notifyShortlyRemove() { }

bool cAbstractComponent::applicationCloseAdvisable(cAbstractNELApp&)
{
    return true;
}

nstd::tPtrVector<cInterfaceDep> const& cAbstractComponent::interfaceDeps() const
{
    return maInterfaceDeps;
}

bool cAbstractComponent::delayAnnouncement() const
{
    return false;
}

void cAbstractComponent::setComponentID(unsigned int id)
{
    cComponentAddr const address(fixedQueueID(), id);
    if (isLocal())
        mLocation.setAddress(address);
    mAddress = address;
}

void cAbstractComponent::removeLater() noexcept
{
    mbToRemove = true;
    requestPass();
}

void cAbstractComponent::modifyInterfaceDep() noexcept
{
    mbInterfaceDepModified = true;
    ++miInterfaceDepChanges;
    requestPass();
}

void cAbstractComponent::modifyComponentDep() noexcept
{
    mbComponentDepModified = true;
    ++miComponentDepChanges;
    requestPass();
}

void cAbstractComponent::addLocalRequiredComponent(cAbstractComponent* component)
{
    if (!component)
        return;
    nstd::tList<cAbstractComponent*> user;
    user.append(this);
    mRequired.append(component);
    component->mUsers.take(component->mUsers.end(), user); // cannot fail
    modifyComponentDep();
}

bool cAbstractComponent::requiresComponent(cAbstractComponent const* component) const noexcept
{
    for (auto const* const required : mRequired) {
        if (required == component)
            return true;
    }
    return false;
}

void cAbstractComponent::addInterfaceDep(cInterfaceDep* dependency)
{
    NEL_ASSERT(dependency != 0);
    maInterfaceDeps.append(dependency);
    if (!dependency->mpOwner)
        dependency->mpOwner = this;
    modifyInterfaceDep();
    tell("cAbstractComponent::addInterfaceDep...", __LINE__);
}

void cAbstractComponent::removeInterfaceDep(cInterfaceDep* dependency)
{
    for (unsigned int i = maInterfaceDeps.size(); i-- > 0;) {
        if (maInterfaceDeps[i] != dependency)
            continue;
        maInterfaceDeps.remove(i);
        disown(*dependency);
        for (auto* walk = mpDepWalks; walk; walk = walk->outer())
            walk->notifyRemoved(i);
    }
    modifyInterfaceDep();
}

void cAbstractComponent::recalcInterfaceDeps()
{
    cDepWalk walk(*this);
    while (auto* const dependency = walk.next()) {
        tell("cAbstractComponent::Recalcing deps...", __LINE__);
        dependency->recalc(); // may destroy this component
    }
}

void cAbstractComponent::registerRemoteException(nstd::tAutoPtr<nstd::cAbstractException> prototype)
{
    NEL_ASSERT(prototype.get() != 0);
    if (prototype.pointerType() != nstd::tAutoPtrType::ptObject) // the list cannot own it
        prototype.reinit(prototype->createObject(), nstd::tAutoPtrType::ptObject);
    mRemoteExceptions.guardedInsert(mRemoteExceptions.end(), prototype);
}

nstd::tAutoPtr<nstd::cAbstractException>
cAbstractComponent::tryCreateRegisteredException(nstd::cAsciiString const& typeName,
                                                 nsa::cAbstractDeserializer&) const
{
    for (auto const* const prototype : mRemoteExceptions) {
        if (prototype->typeName() == typeName)
            return nstd::tAutoPtr<nstd::cAbstractException>(prototype->createObject());
    }
    return nstd::tAutoPtr<nstd::cAbstractException>();
}

cModuleMgr& cAbstractComponent::moduleMgr() const
{
    NEL_ASSERT(mpModuleMgr != 0);
    return *mpModuleMgr;
}

// Registering asks for a pass of its own. The manager of a component that is not registered may be gone.
void cAbstractComponent::requestPass() noexcept
{
    if (mpRecord)
        mpModuleMgr->handleComponentIterationLater();
}

void cAbstractComponent::disown(cInterfaceDep& dependency) const noexcept
{
    if (dependency.mpOwner == this)
        dependency.mpOwner = nullptr;
}

// Nobody requires this component any more, and it requires nobody. What a component requires of itself goes
// with the first half.
void cAbstractComponent::leaveOthers() noexcept
{
    for (auto* const required : mRequired)
        eraseLast(required->mUsers, this);
    for (auto* const user : mUsers)
        eraseLast(user->mRequired, this);
}

} // namespace ncs
