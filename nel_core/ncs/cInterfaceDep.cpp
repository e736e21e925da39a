#include "nel_core/ncs/cInterfaceDep.h"

#include <algorithm>
#include <utility>

#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cAbstractInterface.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/ncs/cModuleMgrImpl.h"
#include "nel_core/ncs/cNCSExceptions.h"
#include "nel_core/std/cSTDExceptions.h"

namespace ncs {

// A component that is being looked at: its record stays while slots and interfaces are called, also when the
// component itself goes.
class cInterfaceDep::cCandidate {
public:
    cCandidate(cModuleMgrImpl& manager, cAbstractComponent& component,
               cManagedComponent const* record) noexcept
        : mWalk(manager),
          mManager(manager),
          mComponent(component),
          mpRecord(record)
    {
    }
    cCandidate(cModuleMgrImpl& manager, cAbstractComponent& component) noexcept
        : cCandidate(manager, component, manager.recordOf(component))
    {
    }

    /// Whether it has left the registry, perhaps even died, or is about to leave.
    bool isGone() const noexcept { return mpRecord && mManager.isLeaving(*mpRecord); }
    cAbstractComponent& component() const noexcept { return mComponent; }

private:
    cModuleMgrImpl::cWalk const mWalk;
    cModuleMgrImpl const& mManager;
    cAbstractComponent& mComponent;
    cManagedComponent const* const mpRecord; ///< null: not registered
};

// A binding or dissolution under way: the latest one, until what it calls begins another.
class cInterfaceDep::cTurn {
public:
    explicit cTurn(cInterfaceDep& dependency) noexcept : mpDependency(&dependency), mpOuter(dependency.mpTurn)
    {
        if (mpOuter)
            mpOuter->mbLatest = false;
        dependency.mpTurn = this;
    }
    cTurn(cTurn const&) = delete;
    cTurn& operator=(cTurn const&) = delete;
    ~cTurn()
    {
        if (mpDependency)
            mpDependency->mpTurn = mpOuter;
    }

    /// Whether the dependency still lives.
    bool isAlive() const noexcept { return mpDependency != nullptr; }
    bool isLatest() const noexcept { return mpDependency && mbLatest; }

private:
    friend class cInterfaceDep;

    cInterfaceDep* mpDependency; ///< null once it is gone
    cTurn* const mpOuter;
    bool mbLatest = true;
};

cInterfaceDep::cInterfaceDep(cAbstractComponent* owner, cModuleMgr& manager, cInterfaceDesc const& desc,
                             cAbstractInterface* local, selectionAlgo algorithm)
    : mpOwner(owner),
      mManager(manager),
      mDesc(desc),
      meAlgorithm(algorithm),
      mpLocal(local)
{
    sigMatched.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    sigUnmatched.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    manager.sigComponentRegistered.connect(nrmi::slot(this, &cInterfaceDep::sltComponentRegistered));
    manager.sigComponentRemoved.connect(nrmi::slot(this, &cInterfaceDep::sltComponentRemoved));
}

cInterfaceDep::cInterfaceDep(cModuleMgr& manager, cInterfaceDesc const& desc, cAbstractInterface* local,
                             selectionAlgo algorithm)
    : cInterfaceDep(nullptr, manager, desc, local, algorithm)
{
}

cInterfaceDep::cInterfaceDep(cAbstractComponent& owner, cInterfaceDesc const& desc, cAbstractInterface* local,
                             selectionAlgo algorithm)
    : cInterfaceDep(&owner, owner.moduleMgr(), desc, local, algorithm)
{
    owner.addInterfaceDep(this);
}

cInterfaceDep::~cInterfaceDep()
{
    for (cTurn* turn = mpTurn; turn; turn = turn->mpOuter)
        turn->mpDependency = nullptr;
    if (mpOwner)
        mpOwner->removeInterfaceDep(this);
}

cComponentAddr cInterfaceDep::address() const
{
    return mMatch.location().address();
}

bool cInterfaceDep::validateMatch(cMatchedDependency const& match) const
{
    return match.valid();
}

cAbstractInterface* cInterfaceDep::hasPotentialyMatchingInterface(cAbstractComponent& component) const
{
    return component.hasMatchingInterface(mDesc);
}

cAbstractInterface* cInterfaceDep::hasMatchingInterface(cAbstractComponent& component) const
{
    cAbstractInterface* const found = hasPotentialyMatchingInterface(component);
    if (!found)
        return nullptr;
    cComponentLocation const& location = component.location();
    auto const isSame = [&](cComponentLocation const& other) { return other == location; };
    auto const isSameHost = [&](cComponentLocation const& other) {
        return other.hostName() == location.hostName();
    };
    if (std::any_of(mExcluded.begin(), mExcluded.end(), isSame))
        return nullptr;
    if (!mPossible.empty() && std::none_of(mPossible.begin(), mPossible.end(), isSameHost))
        return nullptr;
    return found;
}

void cInterfaceDep::addPossibleLocation(cComponentLocation const& location, bool useUnpredictable)
{
    if (!useUnpredictable)
        cSTDExceptions::throwUnsupportedOperation("cInterfaceDep::addPossibleLocation(useUnpredictable)");
    mPossible.append(location);
}

void cInterfaceDep::setExplicit(cComponentLocation const& location)
{
    cComponentLocation const wanted(location); // may be that of a provider that goes meanwhile
    if (!dissolve())
        return;
    meAlgorithm = saUseExcplicit;
    cCandidate const provider(*mManager.mpImpl, mManager.findComponent(wanted));
    if (provider.isGone())
        cNCSExceptions::throwNoSuchModule(wanted);
    if (cAbstractInterface* const provided = hasPotentialyMatchingInterface(provider.component()))
        bind(provider, *provided);
}

void cInterfaceDep::invalidateMatch()
{
    dissolve();
}

// Stops at the first component when the others cannot make a difference.
void cInterfaceDep::recalc()
{
    cModuleMgrImpl& manager = *mManager.mpImpl;
    manager.walkRecords([&](cManagedComponent const& record) {
        if (meAlgorithm == saUseFirstBest)
            return isSeeking() && seek(cCandidate(manager, record.component(), &record));
        recalc(record.component());
        return false;
    });
}

void cInterfaceDep::recalc(cAbstractComponent& component)
{
    switch (meAlgorithm) {
    case saUseExcplicit: recalcUseExcplicit(component); break;
    case saUseFirstBest: recalcUseFirstBest(component); break;
    case saUseInteractive: recalcUseInteractive(component); break;
    default: break;
    }
}

void cInterfaceDep::recalcUseExcplicit(cAbstractComponent&)
{
    if (!mpTurn && miState == kBound && !mMatch.valid())
        dissolve();
}

void cInterfaceDep::recalcUseFirstBest(cAbstractComponent& component)
{
    if (isSeeking())
        seek(cCandidate(*mManager.mpImpl, component));
}

void cInterfaceDep::recalcUseInteractive(cAbstractComponent&)
{
    cSTDExceptions::throwUnsupportedOperation("cInterfaceDep::saUseInteractive");
}

piVoid cInterfaceDep::sltComponentRegistered(cAbstractComponent& component)
{
    recalc(component);
    return piVoid();
}

piVoid cInterfaceDep::sltComponentRemoved(cAbstractComponent& component)
{
    if (mMatch.isAt(mManager.mpImpl->locationOf(component))) {
        mMatch.invalidate();
        if (mpOwner)
            mpOwner->modifyInterfaceDep();
    }
    return piVoid();
}

// Whether another component may still make a difference; false as well when the dependency is gone.
bool cInterfaceDep::seek(cCandidate const& candidate)
{
    if (miState == kBound && (!dissolve() || meAlgorithm != saUseFirstBest))
        return false;
    cAbstractInterface* const provided =
        candidate.isGone() ? nullptr : hasMatchingInterface(candidate.component());
    if (!provided)
        return true;
    return bind(candidate, *provided) && meAlgorithm == saUseFirstBest;
}

// The match is stored at the end, and sltComponentRemoved() knows nothing of it before. A provider that is
// gone by then will never be told to be removed again: the binding is dissolved at once. True when the
// dependency lives and is unbound.
bool cInterfaceDep::bind(cCandidate const& provider, cAbstractInterface& provided)
{
    cComponentAddr const address = provider.component().address();
    cMatchedDependency match(mMatch);
    match.set(provider.component().location());
    cTurn const turn(*this);
    if (mpLocal)
        mpLocal->connectInterface(provided);
    if (turn.isLatest() && !provider.isGone()) {
        tellMatched(address, turn);
        if (turn.isLatest())
            miState = kBound;
    }
    if (turn.isLatest() && provider.isGone())
        return dissolve();
    if (turn.isLatest())
        mMatch = std::move(match);
    return turn.isAlive() && miState == kUnbound;
}

// When a slot raises, the local interface does not stay connected to what this does not watch; the first
// failure is the one to tell.
void cInterfaceDep::tellMatched(cComponentAddr const& address, cTurn const& turn)
try {
    sigMatched(address);
} catch (...) {
    if (turn.isLatest() && mpLocal) {
        try {
            mpLocal->disconnectInterface();
        } catch (...) {
        }
    }
    throw;
}

// A dissolution, or a new binding, that begins meanwhile takes over; if that fails half-way, this one is
// completed. True when the dependency lives and is unbound.
bool cInterfaceDep::dissolve()
{
    cTurn const turn(*this);
    mMatch.invalidate();
    if (mpLocal)
        mpLocal->disconnectInterface();
    if (turn.isLatest() && miState == kBound) {
        miState = kDissolving;
        try {
            sigUnmatched();
        } catch (...) {
            if (turn.isAlive() && miState == kDissolving)
                miState = kBound;
            throw;
        }
    }
    if (turn.isAlive() && miState == kDissolving)
        miState = kUnbound;
    return turn.isAlive() && miState == kUnbound;
}

} // namespace ncs
