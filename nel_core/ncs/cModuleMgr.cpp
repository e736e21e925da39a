#include "nel_core/ncs/cModuleMgr.h"

#include <utility>

#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cModuleMgrImpl.h"
#include "nel_core/ncs/cNCSExceptions.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/raise.h"

namespace ncs {

cModuleMgr::cModuleMgr(nce::cCoreExtensionMgr const&) : mpImpl(nullptr)
{
    auto const ignore = nrmi::cAbstractSignal::ibIgnoreUnconnected;
    sigCompatIdle.setInvocationBehavior(ignore);
    sigComponentAdded.setInvocationBehavior(ignore);
    sigComponentRegistered.setInvocationBehavior(ignore);
    sigComponentRemoved.setInvocationBehavior(ignore);
    sigComponentDepModified.setInvocationBehavior(ignore);
    sigInterfaceDepModified.setInvocationBehavior(ignore);
    mpImpl = new cModuleMgrImpl(*this);
}

// The implementation is still asked while it destroys the components.
cModuleMgr::~cModuleMgr()
{
    delete mpImpl;
}

cAbstractComponent& cModuleMgr::addComponent(cAbstractComponent& component, cComponentAddr const& deployedBy)
{
    return mpImpl->add(nstd::tAutoPtr<cManagedComponent>(new cManagedComponent(component)), deployedBy);
}

cAbstractComponent& cModuleMgr::addComponent(nstd::tAutoPtr<cAbstractComponent> component,
                                             cComponentAddr const& deployedBy)
{
    nstd::tAutoPtr<cManagedComponent> record(new cManagedComponent(std::move(component)));
    return mpImpl->add(std::move(record), deployedBy);
}

void cModuleMgr::removeComponent(cComponentAddr const& address)
{
    findComponent(address).removeLater();
    handleComponentIterationLater();
}

void cModuleMgr::removeAllComponentsNow()
{
    mpImpl->removeAllNow();
}

void cModuleMgr::handleComponentIterationLater() noexcept
{
    mpImpl->requestPass();
}

void cModuleMgr::registerClassLoader(nstd::tAutoPtr<npi::cAbstractClassLoader> loader)
{
    NEL_ASSERT(loader.get() != 0);
    mpImpl->mClassLoaders.guardedInsert(mpImpl->mClassLoaders.end(), loader);
}

cAbstractComponent& cModuleMgr::findComponent(cComponentLocation const& location) const
{
    if (auto* const found = hasComponent(location))
        return *found;
    cNCSExceptions::throwNoSuchModule(location);
}

cAbstractComponent& cModuleMgr::findComponent(cComponentAddr const& address) const
{
    if (auto* const found = hasComponent(address))
        return *found;
    cNCSExceptions::throwNoSuchModule(address);
}

cAbstractComponent& cModuleMgr::findComponent(nstd::cAsciiString const& context) const
{
    if (auto* const found = hasComponent(context))
        return *found;
    cNCSExceptions::throwNoSuchModule(context);
}

cAbstractComponent& cModuleMgr::findComponent(nrmi::cConnectable const& object) const
{
    auto const provides = [&object](cAbstractComponent const& component) {
        return component.hasInterface(object) != nullptr;
    };
    if (auto* const found = mpImpl->find(provides))
        return *found;
    cNCSExceptions::throwNoPublicInterface(object);
}

cAbstractComponent* cModuleMgr::hasComponent(cComponentAddr const& address) const
{
    return mpImpl->find([&](cAbstractComponent const& component) { return component.address() == address; });
}

cAbstractComponent* cModuleMgr::hasComponent(nstd::cAsciiString const& context) const
{
    return mpImpl->find(
        [&](cAbstractComponent const& component) { return component.moduleInfo().context() == context; });
}

cAbstractComponent* cModuleMgr::hasComponent(cComponentLocation const& location) const
{
    return mpImpl->find(
        [&](cAbstractComponent const& component) { return component.location() == location; });
}

bool cModuleMgr::exists(cComponentLocation const& location) const
{
    return hasComponent(location) != nullptr;
}

void cModuleMgr::componentsReferencedBy(cAbstractComponent const& component,
                                        nstd::tList<cAbstractComponent*>& users) const
{
    mpImpl->usersOf(component, users);
}

void cModuleMgr::submitShortlyRemove()
{
    mpImpl->walk([](cAbstractComponent& component) {
        component.notifyShortlyRemove();
        return true;
    });
}

bool cModuleMgr::applicationCloseAdvisable(cAbstractNELApp& app)
{
    bool isAdvisable = true;
    mpImpl->walk([&](cAbstractComponent& component) {
        if (!component.applicationCloseAdvisable(app))
            isAdvisable = false;
        return true;
    });
    return isAdvisable;
}

nstd::tAutoPtr<nstd::cAbstractException>
cModuleMgr::createRemoteException(cComponentLocation const& origin, nstd::cAsciiString const& typeName,
                                  nsa::cAbstractDeserializer& deserializer) const
{
    nstd::tAutoPtr<nstd::cAbstractException> exception;
    mpImpl->walk([&](cAbstractComponent const& component) {
        exception = component.tryCreateRegisteredException(typeName, deserializer);
        return !exception;
    });
    if (!exception) {
        auto const message = nstd::makeMessage("$MTR$Unknown remote exception of type %type%!", typeName);
        exception.reset(new nstd::cRuntimeException(message, nullptr, 0), nstd::tAutoPtrType::ptObject);
    }
    exception->setRemoteInfo(origin);
    return exception;
}

void cModuleMgr::setApp(cAbstractNELApp& app)
{
    mpImpl->mpApp = &app;
}

cAbstractNELApp& cModuleMgr::app()
{
    return const_cast<cAbstractNELApp&>(std::as_const(*this).app());
}

cAbstractNELApp const& cModuleMgr::app() const
{
    if (!mpImpl->mpApp)
        nstd::raiseBug(nstd::makeMessage("$MTR$No application object set!"));
    return *mpImpl->mpApp;
}

nstd::tPtrList<cManagedComponent>& cModuleMgr::components()
{
    return mpImpl->mComponents;
}

nstd::tPtrList<cManagedComponent> const& cModuleMgr::components() const
{
    return mpImpl->mComponents;
}

nce::cCoreExtensionMgr& cModuleMgr::coreExtensions() const
{
    return *mpImpl->mpCoreExtensions;
}

} // namespace ncs
