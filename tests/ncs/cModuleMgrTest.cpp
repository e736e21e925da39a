#include "nel_core/ncs/cModuleMgr.h"

#include <climits>
#include <vector>

#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cNoPublicInterfaceException.h"
#include "nel_core/ncs/cNoSuchModuleException.h"
#include "nel_core/pi/cAbstractClassLoader.h"
#include "nel_core/pi/cAbstractNELApp.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/ncs/cManagerFixture.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cQueueFixture.h"
#include "tests/support/expectMessage.h"

namespace {

using ncs::cComponentAddr;
using ntest::cTestComponent;
using ntest::cTestInterface;
using ntest::expectMessage;
using ntest::raisedBy;
using tOwned = nstd::tAutoPtr<ncs::cAbstractComponent>;

class cModuleMgrTest : public ntest::cManagerFixture { };

// Only its lifetime matters.
class cTestLoader : public npi::cAbstractClassLoader {
public:
    explicit cTestLoader(std::string& log) : cAbstractClassLoader("loader"), mLog(log) { }
    ~cTestLoader() override { mLog += "~loader "; }
    nstd::tAutoPtr<ncs::cAbstractPlugIn> instance(nsa::cReferenceFrame&) override { return {}; }
    tOwned instance(nsa::cReferenceFrame&, ncs::cModuleMgr&) override { return {}; }
    void getModuleVersion(unsigned int&, unsigned int&) const override { }
    void getModuleNELVersion(unsigned int&, unsigned int&) const override { }

private:
    std::string& mLog;
};

TEST_F(cModuleMgrTest, numbersComponents)
{
    constexpr unsigned int kRefused = 0;
    struct cRow {
        unsigned int fixed, id;
    };
    std::vector<cRow> const sequences[] = {
        {{0, 2}, {0, 3}, {10, 10}, {0, 11}, {5, kRefused}, {11, kRefused}, {0, 12}},
        {{1, 1}, {1, kRefused}, {0, 2}},
        {{UINT_MAX, UINT_MAX}, {0, kRefused}, {UINT_MAX, kRefused}},
    };
    for (auto const& sequence : sequences) {
        ncs::cModuleMgr fresh(npi::system().coreExtensions);
        for (auto const& row : sequence) {
            auto* const component = new cTestComponent(fresh, "A", &log);
            component->fixedID = row.fixed;
            auto const add = [&] { fresh.addComponent(tOwned(component), cComponentAddr(1, 77)); };
            auto const id = std::to_string(row.fixed == 0 ? UINT_MAX : row.fixed);
            news();
            if (row.id == kRefused) {
                expectMessage<nstd::cRuntimeException>(add, "Component id (" + id + ") not unique!");
                EXPECT_EQ(log, "~A ");
                continue;
            }
            add();
            EXPECT_EQ(component->address(), cComponentAddr(1, row.id));
            EXPECT_EQ(component->deployedBy(), cComponentAddr(1, 77));
        }
    }
}

TEST_F(cModuleMgrTest, aFailedRegistrationChangesNothing)
{
    listener.reset();
    cTestComponent component(*manager);
    component.fixedID = 7;
    {
        cTestComponent sameID(*manager);
        sameID.fixedID = 7;
        manager->addComponent(sameID);
        EXPECT_TRUE(raisedBy<nstd::cBugException>([&] { manager->addComponent(sameID); }));
        EXPECT_TRUE(raisedBy<nstd::cRuntimeException>([&] { manager->addComponent(component); }));
    }
    auto const check = [&] { EXPECT_EQ(component.address().valid(), count() == 1); };
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    EXPECT_GT(ntest::failEachRequest([&] { manager->addComponent(component); }, check), 1u);
}

// A uses B; the order of registration makes no difference.
TEST_F(cModuleMgrTest, announcesLaterAndRemovesUsersFirst)
{
    for (bool const isUserFirst : {true, false}) {
        debug->clear();
        auto& first = add(isUserFirst ? "A" : "B");
        auto& second = add(isUserFirst ? "B" : "A");
        auto& used = isUserFirst ? second : first;
        auto& user = isUserFirst ? first : second;
        user.addLocalRequiredComponent(&used);
        used.addLocalRequiredComponent(&used); // does not keep it
        used.delay = true;
        auto const location = ntest::text(user.location().toString());
        nstd::tList<ncs::cAbstractComponent*> users;
        manager->componentsReferencedBy(used, users);
        EXPECT_EQ(users.size(), 2u);
        EXPECT_EQ(*users.begin(), &first);
        news();
        turn(3);
        EXPECT_EQ(news(), "rA +A d ");
        EXPECT_TRUE(isPassWanted());
        used.delay = false;
        turn(2);
        EXPECT_EQ(news(), "rB +B d ");
        EXPECT_FALSE(isPassWanted());

        manager->removeComponent(used.address());
        turn();
        EXPECT_TRUE(used.toRemove());
        turn(3);
        EXPECT_EQ(news(), "-A ~A -B ~B ");
        EXPECT_EQ(debug->count("Mgr: Mark referencing component for removal... (" + location + ")"), 1u);
        EXPECT_EQ(debug->count("Mark referencing"), 1u);
        EXPECT_FALSE(isPassWanted());
    }
}

// Destructors and slots go on using the manager.
TEST_F(cModuleMgrTest, removesEverythingUsersFirstAndCyclesNewestFirst)
{
    auto& used = add("A");
    auto& user = add("B", &used);
    auto& byHand = *new cTestComponent(*manager, "C", &log);
    manager->addComponent(byHand);
    user.onDestroyed = [&] {
        delete &byHand;
        auto& first = add("D");
        auto& second = add("E", &first);
        first.addLocalRequiredComponent(&second);
        manager->removeAllComponentsNow();
    };
    news();
    manager->removeAllComponentsNow();
    EXPECT_EQ(news(), "~B ~C aD aE ~A ~E ~D ");
    EXPECT_EQ(debug->count("require each other"), 1u);

    add("F");
    listener->onRegistered = [&](auto) { manager->removeAllComponentsNow(); };
    turn();
    EXPECT_EQ(count(), 1u);
    turn();
    EXPECT_EQ(news(), "aF rF +F -F ~F ");
}

TEST_F(cModuleMgrTest, aPassRunsAfterTheOneInWhichItIsWanted)
{
    auto& component = add("A");
    component.modifyInterfaceDep();
    listener->onModified = [&](auto) {
        component.removeLater();
        component.modifyInterfaceDep();
        events->yields.clear();
        turn(3);
    };
    turn();
    EXPECT_EQ(news(), "aA rA +A i ");
    EXPECT_TRUE(component.interfaceDepModified()) << "the change is lost";
    EXPECT_FALSE(events->yields.empty());
    for (auto const& yield : events->yields)
        EXPECT_TRUE(yield.level == 0 || yield.timeout > 0) << "the inner loop spins";
    turn();
    EXPECT_EQ(news(), "-A ~A ");
}

TEST_F(cModuleMgrTest, findsTheFirst)
{
    auto& wanted = add("B");
    add("B");
    cTestInterface strange("x");
    ncs::cComponentLocation const nowhere(cComponentAddr(1, 99), "h", "", 1);
    EXPECT_EQ(&manager->findComponent("B"), &wanted);
    EXPECT_TRUE(manager->exists(wanted.location()) && !manager->exists(nowhere));
    using tNone = ncs::cNoSuchModuleException;
    expectMessage<tNone>([&] { manager->findComponent("Z"); }, "Module (Z) not found!");
    expectMessage<tNone>([&] { manager->findComponent(nowhere); }, "Module (1:99-1@h) not found!");
    expectMessage<tNone>([&] { manager->removeComponent(nowhere.address()); }, "Module (1:99) not found!");
    EXPECT_TRUE(raisedBy<ncs::cNoPublicInterfaceException>([&] { manager->findComponent(strange); }));
}

TEST_F(cModuleMgrTest, asksEveryComponent)
{
    cAbstractNELApp app;
    expectMessage<nstd::cBugException>([&] { manager->app(); }, "No application object set!");
    EXPECT_TRUE(manager->applicationCloseAdvisable(app));
    add("A").closable = false;
    add("B").registerRemoteException(
        nstd::tAutoPtr<nstd::cAbstractException>(new ncs::cNoPublicInterfaceException));
    news();
    EXPECT_FALSE(manager->applicationCloseAdvisable(app));
    manager->submitShortlyRemove();
    EXPECT_EQ(news(), "?A ?B !A !B ");

    nsa::cDeserializeBinary nothing;
    ncs::cComponentLocation const origin(cComponentAddr(1, 7), "alpha", "", 4711);
    char const* const types[][2] = {{"cNoPublicInterfaceException", "No public interface!"},
                                    {"cNone", "Unknown remote exception of type cNone!"}};
    for (auto const& [type, message] : types) {
        auto const exception = manager->createRemoteException(origin, type, nothing);
        EXPECT_EQ(ntest::messageOf(*exception), message);
        EXPECT_EQ(exception->remoteLocation(), origin);
    }
}

TEST_F(cModuleMgrTest, loadersOutliveWhatTheyMade)
{
    auto* const loader = new cTestLoader(log);
    loader->incRef();
    auto& component = add("A");
    component.setClassLoader(loader, "A");
    manager->registerClassLoader(nstd::tAutoPtr<npi::cAbstractClassLoader>(loader));
    turn(2);
    news();
    ntest::cWorkSlots slots;
    npi::cWork nested;
    slots.handle(nested);
    slots.onAction = [&] { // perhaps code of the module
        component.removeLater();
        turn(2);
    };
    npi::schedule(nested).start();
    turn();
    EXPECT_EQ(news(), "-A ~A ");
    EXPECT_TRUE(isPassWanted());
    manager->handleComponentIterationLater();
    turn();
    EXPECT_EQ(news(), "~loader ");

    EXPECT_TRUE(raisedBy<nstd::cBugException>([&] { manager->registerClassLoader({}); }));
    add("B");
    manager->registerClassLoader(nstd::tAutoPtr<npi::cAbstractClassLoader>(new cTestLoader(log)));
    cTestComponent lent(*manager, "C", &log);
    manager->addComponent(lent);
    add("D");
    news();
    manager.reset();
    EXPECT_EQ(news(), "~D ~B ~loader ");
    EXPECT_TRUE(raisedBy<nstd::cBugException>([&] { lent.moduleMgr(); }));
}

TEST_F(cModuleMgrTest, idlesEveryFourSeconds)
{
    auto& idle = work("ComapatIdle");
    EXPECT_TRUE(idle.isStarted() && idle.interval() == 4000);
    manager->sigCompatIdle.connect(nrmi::slot(listener.get(), &ntest::cManagerListener::sltDepModified));
    idle.action();
    EXPECT_EQ(news(), "d ");
}

} // namespace
