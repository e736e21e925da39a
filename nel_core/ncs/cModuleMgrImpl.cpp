#include "nel_core/ncs/cModuleMgrImpl.h"

#include <algorithm>
#include <climits>

#include "nel_core/ncs/cNCSExceptions.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cSTDExceptions.h"

namespace ncs {
namespace {

constexpr unsigned int kIdleInterval = 4000; // milliseconds
constexpr unsigned int kRetryDelay = 10;     // milliseconds, when a nested turn of the queue can do nothing
constexpr char kManagerTag[] = "nel_core/ncs/cModuleMgr";
constexpr unsigned int kMarkUserLine = 150;
constexpr unsigned int kCycleLine = 151;

} // namespace

// A pass that is running, and no other. One that was asked for meanwhile runs on the queue's next turn.
class cModuleMgrImpl::cPass {
public:
    explicit cPass(cModuleMgrImpl& impl) noexcept : mImpl(impl)
    {
        impl.mbPassAllowed = false;
        impl.mbPassWanted = false;
    }
    cPass(cPass const&) = delete;
    cPass& operator=(cPass const&) = delete;
    ~cPass()
    {
        mImpl.mbPassAllowed = true;
        if (mImpl.mbPassWanted)
            mImpl.requestPass();
    }

private:
    cModuleMgrImpl& mImpl;
};

cModuleMgrImpl::cModuleMgrImpl(cModuleMgr& manager)
    : mManager(manager),
      mpWorkQueue(&npi::system().workQueue),
      mpCoreExtensions(&npi::system().coreExtensions)
{
    mComponents.setGuardMode(nstd::tPtrList<cManagedComponent>::gmOwn);
    mClassLoaders.setGuardMode(nstd::tPtrList<npi::cAbstractClassLoader>::gmOwn);
    mManagement.setName("ComponentManagement");
    mIdle.setName("ComapatIdle");
    mManagement.sigAction.connect(nrmi::slot(this, &cModuleMgrImpl::mngSltProcessComponentManagement));
    mIdle.sigAction.connect(nrmi::slot(this, &cModuleMgrImpl::mngSigCompatIdle));
    mpWorkQueue->addJob(mManagement);
    mpWorkQueue->addJob(mIdle);
    mIdle.start(kIdleInterval, npi::cWork::Periodic);
}

cModuleMgrImpl::~cModuleMgrImpl()
{
    mpWorkQueue->removeJob(mManagement);
    mpWorkQueue->removeJob(mIdle);
    mbDying = true;
    purgeAll();
    while (!mClassLoaders.empty())
        mClassLoaders.erase(mClassLoaders.begin());
}

cAbstractComponent& cModuleMgrImpl::add(nstd::tAutoPtr<cManagedComponent> record,
                                        cComponentAddr const& deployedBy)
{
    cAbstractComponent& component = record->component();
    if (component.mpRecord || component.mpModuleMgr != &mManager)
        cSTDExceptions::throwUnsupportedOperation("cModuleMgr::addComponent()");
    cComponentAddr const deployer = deployedBy;
    unsigned int const id = newID(component);
    nstd::tAutoPtr<tElementNode> node(new tElementNode(record.get()));
    component.setComponentID(id);
    component.setDeployedBy(deployer);
    miLastComponentID = id;

    component.mpRecord = record.release();
    component.miRegistration = ++miRegistrations;
    node.release()->linkBefore(*mComponents.end().node());
    requestPass();
    mManager.sigComponentAdded(component);
    return component;
}

void cModuleMgrImpl::removeAllNow()
{
    auto const removeLater = [](cAbstractComponent& component) {
        if (!component.toRemove())
            component.removeLater();
        return true;
    };
    walk(removeLater);
    while (miWalks == 0 && !mComponents.empty()) {
        if (!mngComponentIteration(false)) {
            npi::cDebugEntry(kManagerTag, kCycleLine)
                << "cModuleMgr: Removing components that require each other...";
            purgeAll();
        }
        walk(removeLater); // those that destructors have added
    }
}

// What the queue raises when it is told comes after the start.
void cModuleMgrImpl::requestPass() noexcept
try {
    mManagement.start();
} catch (...) {
    return;
}

// The pass is for those who have waited for this user to go.
void cModuleMgrImpl::forget(cAbstractComponent& component) noexcept
{
    cManagedComponent& record = *component.mpRecord;
    mark(record);
    record.forgetComponent();
    component.mpRecord = nullptr;
    purge();
    requestPass();
}

void cModuleMgrImpl::usersOf(cAbstractComponent const& component,
                             nstd::tList<cAbstractComponent*>& users) const
{
    nstd::tList<cAbstractComponent*> found;
    for (cAbstractComponent* const user : component.mUsers) {
        if (!isRegistered(*user))
            continue;
        auto at = found.end(); // they mostly come in the order of registration
        cAbstractComponent* before = nullptr;
        while (at != found.begin()) {
            auto previous = at;
            before = *--previous;
            if (before->miRegistration <= user->miRegistration)
                break;
            at = previous;
        }
        if (before != user)
            found.insert(at, user);
    }
    users.swap(found);
}

bool cModuleMgrImpl::isRegistered(cAbstractComponent const& component) const noexcept
{
    return component.mpRecord && component.mpModuleMgr == &mManager;
}

// The delay lets a loop inside a pass wait instead of asking over and over again.
piVoid cModuleMgrImpl::mngSltProcessComponentManagement()
{
    if (!mbPassAllowed) {
        mbPassWanted = true;
        mManagement.start(kRetryDelay, npi::cWork::SingleTask);
        return piVoid();
    }
    cPass const running(*this);
    mngComponentIteration(true);
    deleteUnusedLoaders();
    return piVoid();
}

piVoid cModuleMgrImpl::mngSigCompatIdle()
{
    return mManager.sigCompatIdle();
}

unsigned int cModuleMgrImpl::newID(cAbstractComponent const& component) const
{
    unsigned int const id = component.fixedModuleID();
    if (id == 0) {
        if (miLastComponentID == UINT_MAX)
            cNCSExceptions::throwComponentIdNotUnique(miLastComponentID);
        return miLastComponentID + 1;
    }
    auto const hasID = [id](cAbstractComponent const& other) { return other.address().moduleID() == id; };
    if (id < miLastComponentID || find(hasID))
        cNCSExceptions::throwComponentIdNotUnique(id);
    return id;
}

// True when a record was marked.
bool cModuleMgrImpl::mngComponentIteration(bool notify)
{
    bool isErasing = false;
    bool isWaiting = false;
    walkRecords([&](cManagedComponent& record) {
        if (record.mpComponent->toRemove())
            (tryErase(record, notify) ? isErasing : isWaiting) = true;
        else if (notify)
            attend(record);
        return true;
    });
    if (notify && isErasing && isWaiting)
        requestPass();
    return isErasing;
}

// Marks the record unless somebody else requires its component.
bool cModuleMgrImpl::tryErase(cManagedComponent& record, bool notify)
{
    cAbstractComponent& component = *record.mpComponent;
    auto const isUsing = [&](cAbstractComponent const* user) {
        return user != &component && isRegistered(*user);
    };
    if (std::any_of(component.mUsers.begin(), component.mUsers.end(), isUsing)) {
        removeUsersLater(component);
        return false;
    }
    if (notify) {
        cTelling const telling(*this, record, cTelling::evRemoved);
        mManager.sigComponentRemoved(component);
    }
    mark(record);
    return true;
}

// Mostly there is nothing left to do, and no list to make.
void cModuleMgrImpl::removeUsersLater(cAbstractComponent const& component)
{
    auto const isStaying = [&](cAbstractComponent const* user) {
        return !user->toRemove() && isRegistered(*user); // the component itself is to be removed
    };
    if (std::none_of(component.mUsers.begin(), component.mUsers.end(), isStaying))
        return;
    nstd::tList<cAbstractComponent*> users;
    usersOf(component, users);
    for (cAbstractComponent* const user : users) {
        if (user->toRemove())
            continue;
        npi::cDebugEntry(kManagerTag, kMarkUserLine)
            << "cModuleMgr: Mark referencing component for removal... (" << user->location().toString()
            << ")";
        user->removeLater();
    }
}

void cModuleMgrImpl::attend(cManagedComponent& record)
{
    if (!record.mpComponent->announced())
        announce(record);
    if (!record.mbErased && record.mpComponent->announced() && record.mpComponent->interfaceDepModified())
        tellInterfaceDepModified(record);
    if (!record.mbErased && record.mpComponent->announced() && record.mpComponent->componentDepModified())
        tellComponentDepModified(record);
}

void cModuleMgrImpl::announce(cManagedComponent& record)
{
    cAbstractComponent& component = *record.mpComponent;
    if (component.delayAnnouncement()) {
        requestPass();
        return;
    }
    if (!record.mbErased) {
        cTelling const telling(*this, record, cTelling::evRegistered);
        mManager.sigComponentRegistered(component);
    }
    if (record.mbErased)
        return;
    component.setAnnounced();
    component.notifyComponentRegistered();
}

// What is modified meanwhile waits for the next pass, which was asked for then.
void cModuleMgrImpl::tellInterfaceDepModified(cManagedComponent& record)
{
    cAbstractComponent& component = *record.mpComponent;
    unsigned int const changes = component.miInterfaceDepChanges;
    component.recalcInterfaceDeps();
    if (record.mbErased)
        return;
    cComponentLocation const location(component.location()); // stays when a slot destroys the component
    mManager.sigInterfaceDepModified(location);
    if (!record.mbErased && component.miInterfaceDepChanges == changes)
        component.resetInterfaceDepModification();
}

void cModuleMgrImpl::tellComponentDepModified(cManagedComponent& record)
{
    cAbstractComponent& component = *record.mpComponent;
    unsigned int const changes = component.miComponentDepChanges;
    mManager.sigComponentDepModified();
    if (!record.mbErased && component.miComponentDepChanges == changes)
        component.resetComponentDepModification();
}

// On a nested turn of the queue the code of a module may be on the stack. The list is read anew each time:
// what is unloaded runs code of its own.
void cModuleMgrImpl::deleteUnusedLoaders()
{
    auto const isUnused = [](npi::cAbstractClassLoader const* loader) { return loader->isUnused(); };
    auto at = std::find_if(mClassLoaders.begin(), mClassLoaders.end(), isUnused);
    while (at != mClassLoaders.end()) {
        if (mpWorkQueue->level() > 1) {
            if (!mManagement.isStarted())
                mManagement.start(kRetryDelay, npi::cWork::SingleTask);
            return;
        }
        mClassLoaders.erase(at);
        at = std::find_if(mClassLoaders.begin(), mClassLoaders.end(), isUnused);
    }
}

void cModuleMgrImpl::mark(cManagedComponent& record) noexcept
{
    record.mbErased = true;
    mbMarked = true;
}

// All marked records leave the list before the first one is deleted: destructors may walk, add and remove.
void cModuleMgrImpl::purge() noexcept
{
    if (miWalks != 0 || !mbMarked)
        return;
    ++miWalks;
    while (mbMarked) {
        mbMarked = false;
        nstd::tListHeadNodeType<cManagedComponent*> leaving;
        tNode const* const end = mComponents.end().node();
        for (tNode* at = mComponents.begin().node(); at != end;) {
            tNode& found = *at;
            at = at->next();
            if (!found.linkedElement()->element()->mbErased)
                continue;
            found.unlink();
            found.linkBefore(leaving.tail());
        }
        while (!leaving.isAlone())
            destroy(*leaving.next()->linkedElement());
    }
    --miWalks;
}

// Removes all records, the newest first, in whatever state they are.
void cModuleMgrImpl::purgeAll() noexcept
{
    ++miWalks;
    while (!mComponents.empty())
        destroy(*mComponents.last().node()->linkedElement());
    --miWalks;
    mbMarked = false;
}

// A component that stays its owner's is not registered any more.
void cModuleMgrImpl::destroy(tElementNode& node) noexcept
{
    nstd::tAutoPtr<cManagedComponent> const record(node.element());
    nstd::tAutoPtr<tElementNode> const unlinked(&node); // alone: only a list deletes records with their nodes
    if (!record->mpComponent)
        return;
    record->mpComponent->mpRecord = nullptr;
    if (mbDying && !record->mpComponentGuard)
        record->mpComponent->mpModuleMgr = nullptr;
}

} // namespace ncs
