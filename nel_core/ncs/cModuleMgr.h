#pragma once

#include "nel_core/export.h"
#include "nel_core/nce/fwd.h"
#include "nel_core/ncs/cComponentAddr.h"
#include "nel_core/ncs/cManagedComponent.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tPtrList.h"

namespace ncs {

/// The registry of an application's components.
///
/// It numbers the components, announces them, tells when what they depend on has changed, and removes them in
/// an order in which users go before what they use. Except for registration all of that happens in management
/// passes, which run as a work of the system's queue: a change only asks for one. Class loaders that are
/// handed over here are deleted by the first pass in which nothing that they made is left.
///
/// Components may be registered, removed and destroyed by every slot and callback. A pass that one of these
/// ends with an exception has erased what it had told to be removed; the rest waits for the next pass.
/// Components that require each other in a cycle are never erased by a pass.
///
/// Needs the system object, which must outlive it. Used on one thread; not to be destroyed from inside a
/// pass.
class NEL_EXPORT cModuleMgr {
public:
    /// Schedules the management and the idle work. The argument is not kept: coreExtensions() are the
    /// system's.
    explicit cModuleMgr(nce::cCoreExtensionMgr const& coreExtensions);
    cModuleMgr(cModuleMgr const&) = delete;
    cModuleMgr& operator=(cModuleMgr const&) = delete;
    /// Removes its works, deletes the records, the newest first, with the components that they own, and then
    /// the class loaders. Emits nothing.
    virtual ~cModuleMgr();

    /// Every four seconds.
    nrmi::localSignal0<piVoid> sigCompatIdle;
    /// At the end of addComponent().
    nrmi::localSignal1<piVoid, cAbstractComponent&> sigComponentAdded;
    /// A pass announces a component.
    nrmi::localSignal1<piVoid, cAbstractComponent&> sigComponentRegistered;
    /// A pass will erase a component at its end.
    nrmi::localSignal1<piVoid, cAbstractComponent&> sigComponentRemoved;
    /// A pass has found a component whose required components have changed.
    nrmi::localSignal0<piVoid> sigComponentDepModified;
    /// A pass has recalculated the dependencies of the component at that location.
    nrmi::localSignal1<piVoid, cComponentLocation const&> sigInterfaceDepModified;

    /// Registers a component, which stays its owner's, and numbers it: with its fixedModuleID(), or else with
    /// the number after the highest that was ever given; the first one is 2. Raises
    /// cNCSExceptions::throwComponentIdNotUnique(), and registers nothing, for a fixed ID below the highest
    /// one or in use, and when there are no more numbers; an unsupported operation for a component that is
    /// registered already or was made for another manager. Returns the component.
    cAbstractComponent& addComponent(cAbstractComponent& component,
                                     cComponentAddr const& deployedBy = cComponentAddr());
    /// The same for a component that becomes the manager's, which deletes it when it cannot be registered.
    cAbstractComponent& addComponent(nstd::tAutoPtr<cAbstractComponent> component,
                                     cComponentAddr const& deployedBy = cComponentAddr());
    /// Lets passes remove the component; raises cNoSuchModuleException when there is none at that address.
    void removeComponent(cComponentAddr const& address);
    /// Erases all components, users before what they use, without signals; those of a cycle, the newest
    /// first. From inside a walk over the components (a slot or callback of a pass, or of a dependency that
    /// looks for a provider) it only marks all of them to be removed.
    void removeAllComponentsNow();
    /// Asks for a pass on the queue's next turn.
    void handleComponentIterationLater() noexcept;
    /// Takes a class loader over; a pass deletes it when nothing that it made is left. Without one the
    /// assertion "loader.get() != 0" fails.
    void registerClassLoader(nstd::tAutoPtr<npi::cAbstractClassLoader> loader);

    /// The first component, in the order of registration, at that location or address, with that text as the
    /// context of its info(), or that provides this very object as an interface. Raise cNoSuchModuleException
    /// or, for an object, cNoPublicInterfaceException when there is none.
    cAbstractComponent& findComponent(cComponentLocation const& location) const;
    cAbstractComponent& findComponent(cComponentAddr const& address) const;
    cAbstractComponent& findComponent(nstd::cAsciiString const& context) const;
    cAbstractComponent& findComponent(nrmi::cConnectable const& object) const;
    /// The same; null when there is none.
    cAbstractComponent* hasComponent(cComponentAddr const& address) const;
    cAbstractComponent* hasComponent(nstd::cAsciiString const& context) const;
    cAbstractComponent* hasComponent(cComponentLocation const& location) const;
    bool exists(cComponentLocation const& location) const;

    /// Replaces `users` by the components that require `component`, itself included where it does, in the
    /// order of registration.
    void componentsReferencedBy(cAbstractComponent const& component,
                                nstd::tList<cAbstractComponent*>& users) const;
    /// Calls notifyShortlyRemove() of every component in the order of registration.
    void submitShortlyRemove();
    /// Whether no component objects to closing the application; every one is asked.
    bool applicationCloseAdvisable(cAbstractNELApp& app);
    /// A new exception of that type, marked with its origin: made by the first component that has registered
    /// the type, else an nstd::cRuntimeException that says that nobody has. The caller loads its content from
    /// `deserializer`.
    [[nodiscard]] nstd::tAutoPtr<nstd::cAbstractException>
    createRemoteException(cComponentLocation const& origin, nstd::cAsciiString const& typeName,
                          nsa::cAbstractDeserializer& deserializer) const;

    /// The application object, which stays the caller's.
    void setApp(cAbstractNELApp& app);
    /// Raise nstd::cBugException when there is none.
    cAbstractNELApp& app();
    cAbstractNELApp const& app() const;

    /// The records in the order of registration, for reading. Those that isErased() wait to be deleted.
    nstd::tPtrList<cManagedComponent>& components();
    nstd::tPtrList<cManagedComponent> const& components() const;
    /// The system's core extensions.
    nce::cCoreExtensionMgr& coreExtensions() const;

private:
    friend class cAbstractComponent;
    friend class cInterfaceDep;

    cModuleMgrImpl* mpImpl; ///< owned
};

} // namespace ncs
