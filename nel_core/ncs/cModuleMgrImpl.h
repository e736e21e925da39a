#pragma once

#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/pi/cAbstractClassLoader.h"
#include "nel_core/pi/cWork.h"
#include "nel_core/rmi/cConnectable.h"

namespace ncs {

/// What the module manager is made of, and the receiver of its works. Internal to the library.
///
/// A record that leaves the registry is only marked at first. Marked records are physically removed, and
/// owned components deleted, when no walk over the records is running: walks nest, because they call out.
/// A record therefore stays where it is during a walk, also when its component is gone.
class cModuleMgrImpl : public nrmi::cConnectable {
public:
    class cWalk;

    explicit cModuleMgrImpl(cModuleMgr& manager);
    ~cModuleMgrImpl() override;

    /// Numbers and registers the record's component; raises without having changed anything.
    cAbstractComponent& add(nstd::tAutoPtr<cManagedComponent> record, cComponentAddr const& deployedBy);
    void removeAllNow();
    void requestPass() noexcept;
    /// The component dies while it is registered: its record is marked, and forgets it without deleting it.
    void forget(cAbstractComponent& component) noexcept;
    /// `users` becomes those registered components that require `component`, marked ones included.
    void usersOf(cAbstractComponent const& component, nstd::tList<cAbstractComponent*>& users) const;

    /// The record of the component, null when it is not registered. Never looks into a component of which a
    /// pass is telling: it may have died meanwhile.
    cManagedComponent const* recordOf(cAbstractComponent const& component) const noexcept;
    /// Whether the record is marked or will be: nothing that must be told of its removal may begin to use it.
    bool isLeaving(cManagedComponent const& record) const noexcept;
    /// The location of the component, which may have died as above.
    cComponentLocation const& locationOf(cAbstractComponent const& component) const noexcept;

    /// Calls `visit(component)` for every component that is not marked, in the order of registration, those
    /// that are added meanwhile included, until it returns false. The call may change the registry in any
    /// way.
    template<typename Visit>
    void walk(Visit visit);
    /// The same with the records.
    template<typename Visit>
    void walkRecords(Visit visit);
    /// The first component that is not marked and for which `isWanted(component)` is true, or null. The call
    /// must not change the registry.
    template<typename IsWanted>
    cAbstractComponent* find(IsWanted isWanted) const;

    /// The handlers of the two works.
    piVoid mngSltProcessComponentManagement();
    piVoid mngSigCompatIdle();

    cModuleMgr& mManager;
    npi::cWorkQueue* mpWorkQueue;             ///< the system's
    nce::cCoreExtensionMgr* mpCoreExtensions; ///< the system's
    npi::cWork mManagement;
    npi::cWork mIdle;
    bool mbPassAllowed = true;
    nstd::tPtrList<cManagedComponent> mComponents;           ///< owned
    nstd::tPtrList<npi::cAbstractClassLoader> mClassLoaders; ///< owned
    unsigned int miLastComponentID = 1;
    cAbstractNELApp* mpApp = nullptr; ///< not owned

private:
    class cPass;
    class cTelling;
    using tNode = nstd::tPtrList<cManagedComponent>::nodeType;
    using tElementNode = nstd::tPtrList<cManagedComponent>::elementNodeType;

    bool isRegistered(cAbstractComponent const& component) const noexcept;
    unsigned int newID(cAbstractComponent const& component) const;
    bool mngComponentIteration(bool notify);
    bool tryErase(cManagedComponent& record, bool notify);
    void removeUsersLater(cAbstractComponent const& component);
    void attend(cManagedComponent& record);
    void announce(cManagedComponent& record);
    void tellInterfaceDepModified(cManagedComponent& record);
    void tellComponentDepModified(cManagedComponent& record);
    void deleteUnusedLoaders();

    void mark(cManagedComponent& record) noexcept;
    void purge() noexcept;
    void purgeAll() noexcept;
    void destroy(tElementNode& node) noexcept;

    unsigned int miWalks = 0;            ///< running walks, one inside the other, and deletions
    bool mbDying = false;                ///< the destructor runs
    bool mbMarked = false;               ///< records wait to be removed
    bool mbPassWanted = false;           ///< asked for while one was running
    cTelling const* mpTelling = nullptr; ///< of one component at a time: passes do not nest
    unsigned long long miRegistrations = 0;
};

/// A pass tells of a component that its slots may destroy.
class cModuleMgrImpl::cTelling {
public:
    enum Event : unsigned int { evRegistered, evRemoved };

    cTelling(cModuleMgrImpl& impl, cManagedComponent& record, Event event)
        : mImpl(impl),
          mRecord(record),
          mpComponent(record.mpComponent),
          mLocation(mpComponent->location()),
          meEvent(event)
    {
        impl.mpTelling = this;
    }
    cTelling(cTelling const&) = delete;
    cTelling& operator=(cTelling const&) = delete;
    /// A removal is told once, also when a slot has raised.
    ~cTelling()
    {
        mImpl.mpTelling = nullptr;
        if (meEvent == evRemoved)
            mImpl.mark(mRecord);
    }

private:
    friend class cModuleMgrImpl;

    cModuleMgrImpl& mImpl;
    cManagedComponent& mRecord;
    cAbstractComponent const* const mpComponent; ///< dangling once it has died
    cComponentLocation const mLocation;
    Event const meEvent;
};

// Keeps all records where they are while it lives; the outermost one removes those that are marked.
class cModuleMgrImpl::cWalk {
public:
    explicit cWalk(cModuleMgrImpl& impl) noexcept : mImpl(impl) { ++impl.miWalks; }
    cWalk(cWalk const&) = delete;
    cWalk& operator=(cWalk const&) = delete;
    ~cWalk()
    {
        if (--mImpl.miWalks == 0 && mImpl.mbMarked)
            mImpl.purge();
    }

private:
    cModuleMgrImpl& mImpl;
};

inline cManagedComponent const* cModuleMgrImpl::recordOf(cAbstractComponent const& component) const noexcept
{
    return mpTelling && mpTelling->mpComponent == &component ? &mpTelling->mRecord : component.mpRecord;
}

inline bool cModuleMgrImpl::isLeaving(cManagedComponent const& record) const noexcept
{
    return record.mbErased
           || (mpTelling && &mpTelling->mRecord == &record && mpTelling->meEvent == cTelling::evRemoved);
}

inline cComponentLocation const&
cModuleMgrImpl::locationOf(cAbstractComponent const& component) const noexcept
{
    return mpTelling && mpTelling->mpComponent == &component ? mpTelling->mLocation : component.location();
}

template<typename Visit>
void cModuleMgrImpl::walk(Visit visit)
{
    walkRecords([&](cManagedComponent const& record) { return visit(*record.mpComponent); });
}

template<typename Visit>
void cModuleMgrImpl::walkRecords(Visit visit)
{
    cWalk const running(*this);
    tNode const* const end = mComponents.end().node();
    for (tNode* at = mComponents.begin().node(); at != end; at = at->next()) {
        cManagedComponent& record = *at->linkedElement()->element();
        if (!record.mbErased && !visit(record))
            return;
    }
}

template<typename IsWanted>
cAbstractComponent* cModuleMgrImpl::find(IsWanted isWanted) const
{
    for (cManagedComponent const* const record : mComponents) {
        if (!record->mbErased && isWanted(*record->mpComponent))
            return record->mpComponent;
    }
    return nullptr;
}

} // namespace ncs
