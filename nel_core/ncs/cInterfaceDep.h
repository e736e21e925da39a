#pragma once

#include "nel_core/ncs/cInterfaceDesc.h"
#include "nel_core/ncs/cMatchedDependency.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/std/tList.h"

namespace ncs {

/// The need of a component for an interface of another one.
///
/// It looks for a provider among the manager's components, when one is announced and when its owner's
/// dependencies are recalculated, and binds the local interface to the interface that it finds. When the
/// provider is removed, the owner's next recalculation dissolves the binding and looks for another one.
///
/// A dependency belongs to the component that has it as a member, or to nobody. It must not outlive the
/// manager, unless it is only destroyed afterwards. The local interface must outlive it. Slots and interfaces
/// that are called here may destroy it; a recalculation that they ask for while it is being bound or unbound
/// is ignored, while a binding that they choose, or dissolve, takes the place of the one under way.
class NEL_EXPORT cInterfaceDep : public nrmi::cConnectable {
public:
    /// How a provider is chosen; any other value chooses none.
    enum selectionAlgo : unsigned int {
        saUseExcplicit = 0,   ///< by setExplicit() only
        saUseFirstBest = 1,   ///< the first suitable one that is met, kept as long as it is there
        saUseInteractive = 2, ///< reserved: recalculation raises an unsupported operation, which ends every
                              ///< pass that announces something
    };

    /// Emitted with the provider's address when the dependency binds.
    nrmi::localSignal1<piVoid, cComponentAddr const&> sigMatched;
    /// Emitted when a binding is dissolved.
    nrmi::localSignal0<piVoid> sigUnmatched;

    /// A dependency of nobody. `local` may be null.
    cInterfaceDep(cModuleMgr& manager, cInterfaceDesc const& desc, cAbstractInterface* local,
                  selectionAlgo algorithm);
    /// Adds itself to the dependencies of its owner. `local` may be null.
    cInterfaceDep(cAbstractComponent& owner, cInterfaceDesc const& desc, cAbstractInterface* local,
                  selectionAlgo algorithm);
    /// Leaves the dependencies of the owner; the binding is not dissolved.
    ~cInterfaceDep() override;

    /// What is needed.
    cInterfaceDesc const& desc() const noexcept { return mDesc; }
    /// Whether the dependency is bound. It is until the binding to a removed provider has been dissolved.
    bool matched() const noexcept { return miState != kUnbound; }
    /// The provider's address; raises cUnmatchedInterfaceException when there is no provider.
    cComponentAddr address() const;
    /// Whether `match` is valid.
    bool validateMatch(cMatchedDependency const& match) const;
    /// The component's first interface that matches the description, null when there is none.
    cAbstractInterface* hasPotentialyMatchingInterface(cAbstractComponent& component) const;
    /// The same; null as well when the component's location is excluded, or its host is not among those of
    /// the possible locations where there are any.
    cAbstractInterface* hasMatchingInterface(cAbstractComponent& component) const;
    /// Adds a location whose host may run the provider. Raises an unsupported operation, and changes nothing,
    /// unless `useUnpredictable` is true.
    void addPossibleLocation(cComponentLocation const& location, bool useUnpredictable);

    /// Dissolves the binding and binds to the component at that location, if it has a matching interface;
    /// nothing else binds from then on. Raises cNoSuchModuleException when there is no such component; the
    /// dependency is unbound then.
    void setExplicit(cComponentLocation const& location);
    /// Dissolves the binding. The local interface is disconnected whether there was one or not.
    void invalidateMatch();
    /// Dissolves a binding to a provider that is gone and looks for another one, as the algorithm says, among
    /// all components in the order of registration.
    void recalc();
    /// The same for one component, and the parts of it for each algorithm.
    void recalc(cAbstractComponent& component);
    void recalcUseExcplicit(cAbstractComponent& component);
    void recalcUseFirstBest(cAbstractComponent& component);
    void recalcUseInteractive(cAbstractComponent& component);

    /// Connected to the manager.
    piVoid sltComponentRegistered(cAbstractComponent& component);
    piVoid sltComponentRemoved(cAbstractComponent& component);

private:
    friend class cAbstractComponent;
    class cCandidate;
    class cTurn;

    static constexpr unsigned int kUnbound = 0;
    static constexpr unsigned int kBound = 1;
    static constexpr unsigned int kDissolving = 2; ///< still matched; sigUnmatched is being emitted

    cInterfaceDep(cAbstractComponent* owner, cModuleMgr& manager, cInterfaceDesc const& desc,
                  cAbstractInterface* local, selectionAlgo algorithm);
    bool isSeeking() const noexcept { return !mpTurn && !mMatch.valid(); }
    bool seek(cCandidate const& candidate);
    bool bind(cCandidate const& provider, cAbstractInterface& provided);
    void tellMatched(cComponentAddr const& address, cTurn const& turn);
    bool dissolve();

    cAbstractComponent* mpOwner; ///< null: none
    cModuleMgr& mManager;
    cInterfaceDesc mDesc;
    nstd::tList<cComponentLocation> mPossible;
    nstd::tList<cComponentLocation> mExcluded;
    selectionAlgo meAlgorithm;
    unsigned int miState = kUnbound;
    cMatchedDependency mMatch;
    cAbstractInterface* mpLocal; ///< not owned; may be null

    cTurn* mpTurn = nullptr; ///< the innermost binding or dissolution under way: recalculation is ignored
};

} // namespace ncs
