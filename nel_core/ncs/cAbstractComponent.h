#pragma once

#include "nel_core/ncs/cAbstractModule.h"
#include "nel_core/ncs/cComponentLocation.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/tList.h"
#include "nel_core/std/tPtrList.h"
#include "nel_core/std/tPtrVector.h"

namespace ncs {

/// A part of an application that the module manager registers, announces to the others and removes again.
///
/// What changes here takes effect in the manager's next pass, see cModuleMgr; while the component is not
/// registered, nothing asks for that pass. A component that is destroyed while it is registered silently
/// leaves the registry and the required components of the others; its dependencies that remain have no owner
/// from then on. A component that outlives its manager is registered nowhere.
class NEL_EXPORT cAbstractComponent : public cAbstractModule {
public:
    explicit cAbstractComponent(cModuleMgr& manager);
    /// The frame is what the component was created with; it is not used here.
    cAbstractComponent(cModuleMgr& manager, nsa::cReferenceFrame& frame);
    ~cAbstractComponent() override;

    bool isPlugIn() const override;
    bool isComponent() const override;
    void storeSettings(nsa::cAbstractSerializer& serializer) const override;
    void loadSettings(nsa::cAbstractDeserializer& deserializer) override;
    void applySettings() override;
    /// For applications; empty here.
    virtual nstd::cAsciiString isSpecific() const;
    /// For applications; false here.
    virtual bool explicitLocal() const;
    /// The queue ID of the address; 1 here.
    virtual unsigned int fixedQueueID() const;
    /// The component ID that it insists on; 0, as here, for one that the manager gives.
    virtual unsigned int fixedModuleID() const;
    /// Whether the component itself is in this process, or stands for one in another; true here.
    virtual bool isLocal() const;
    /// The component has just been announced.
    virtual void notifyComponentRegistered();
    /// The application will shut down soon.
    virtual void notifyShortlyRemove();
    /// Whether the application may close, as far as this component is concerned; true here.
    virtual bool applicationCloseAdvisable(cAbstractNELApp& app);
    /// The dependencies of this component in the order of their addition, not owned.
    virtual nstd::tPtrVector<cInterfaceDep> const& interfaceDeps() const;
    /// Whether the manager should wait with the announcement; false here. Asked again in every pass, which
    /// keeps the queue turning.
    virtual bool delayAnnouncement() const;

    /// The address becomes that of component `id` in the queue of fixedQueueID(), and, if this is a local
    /// component, so does that of the location.
    void setComponentID(unsigned int id);
    /// The manager will remove the component, once no other one requires it. An exception that escapes ends
    /// the process.
    void removeLater() noexcept;
    /// The manager will recalculate the dependencies.
    void modifyInterfaceDep() noexcept;
    /// The manager will tell that the required components have changed.
    void modifyComponentDep() noexcept;

    /// Adds a component that this one uses and that must outlive it, without looking for duplicates, and
    /// calls modifyComponentDep(). Nothing happens for null.
    void addLocalRequiredComponent(cAbstractComponent* component);
    /// Whether `component` is among the required ones.
    bool requiresComponent(cAbstractComponent const* component) const noexcept;

    /// Adds a dependency, which is not deleted here, and calls modifyInterfaceDep(); null fails the assertion
    /// "dependency != 0". Dependencies do that themselves. One that belongs to nobody belongs to this
    /// component from then on; one that belongs to another component must be removed here before it dies.
    void addInterfaceDep(cInterfaceDep* dependency);
    /// Removes every occurrence of it and calls modifyInterfaceDep(), whether there was one or not. One that
    /// was there, and this component's, belongs to nobody from then on.
    void removeInterfaceDep(cInterfaceDep* dependency);
    /// Recalculates each dependency that is there at the start and still there when its turn comes. What that
    /// calls may do anything to the component, destroy it included.
    void recalcInterfaceDeps();

    /// Adds a prototype, which this component owns, of an exception class that may arrive from elsewhere;
    /// an empty pointer fails the assertion "prototype.get() != 0".
    void registerRemoteException(nstd::tAutoPtr<nstd::cAbstractException> prototype);
    /// A copy of the first prototype with that type name, empty when there is none. Nothing is read: the
    /// caller loads its content.
    [[nodiscard]] nstd::tAutoPtr<nstd::cAbstractException>
    tryCreateRegisteredException(nstd::cAsciiString const& typeName,
                                 nsa::cAbstractDeserializer& deserializer) const;

    /// The manager that the component was made for. Must not be asked for once that is gone; an assertion
    /// fails then if the component was registered at that time.
    cModuleMgr& moduleMgr() const;
    /// Not valid until the component is registered.
    cComponentAddr const& address() const noexcept { return mAddress; }
    /// The component that had this one registered.
    cComponentAddr const& deployedBy() const noexcept { return mDeployedBy; }
    void setDeployedBy(cComponentAddr const& address) noexcept { mDeployedBy = address; }
    /// The required components in the order of their addition, not owned.
    nstd::tList<cAbstractComponent*> const& localRequiredComponents() const noexcept { return mRequired; }
    bool componentDepModified() const noexcept { return mbComponentDepModified; }
    void resetComponentDepModification() noexcept { mbComponentDepModified = false; }
    /// Where the component lives: at first in this process, with an address that is not valid.
    cComponentLocation const& location() const noexcept { return mLocation; }
    cComponentLocation& componentLocation() noexcept { return mLocation; }
    bool toRemove() const noexcept { return mbToRemove; }
    bool interfaceDepModified() const noexcept { return mbInterfaceDepModified; }
    void resetInterfaceDepModification() noexcept { mbInterfaceDepModified = false; }
    /// Whether the manager has announced the component.
    bool announced() const noexcept { return mbAnnounced; }
    void setAnnounced() noexcept { mbAnnounced = true; }

#if !defined(__cpp_concepts)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wc++20-compat"
    /// As requiresComponent(), where the language leaves the name free.
    bool requires(cAbstractComponent const* component) const noexcept
    {
        return requiresComponent(component);
    }
#pragma GCC diagnostic pop
#endif

private:
    friend class cManagedComponent;
    friend class cModuleMgrImpl;
    class cDepWalk;

    void requestPass() noexcept;
    void disown(cInterfaceDep& dependency) const noexcept;
    void leaveOthers() noexcept;

    cModuleMgr* mpModuleMgr; ///< not owned; null once the manager is gone
    cComponentAddr mAddress;
    cComponentAddr mDeployedBy;
    nstd::tList<cAbstractComponent*> mRequired; ///< not owned
    bool mbComponentDepModified = false;
    cComponentLocation mLocation;
    bool mbToRemove = false;
    bool mbInterfaceDepModified = false;
    nstd::tPtrVector<cInterfaceDep> maInterfaceDeps; ///< not owned
    bool mbAnnounced = false;
    nstd::tPtrList<nstd::cAbstractException> mRemoteExceptions; ///< owned

    nstd::tList<cAbstractComponent*> mUsers; ///< those that require this one, once for each time
    cManagedComponent* mpRecord = nullptr;   ///< while registered
    unsigned long long miRegistration = 0;   ///< the place in the order of registration
    unsigned int miComponentDepChanges = 0;  ///< calls of modifyComponentDep() so far
    unsigned int miInterfaceDepChanges = 0;  ///< calls of modifyInterfaceDep() so far
    cDepWalk* mpDepWalks = nullptr;          ///< the running recalculations, the innermost first
};

} // namespace ncs
