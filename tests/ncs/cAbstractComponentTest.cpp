#include "nel_core/ncs/cAbstractComponent.h"

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cInterfaceDep.h"
#include "nel_core/ncs/cManagedComponent.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/raise.h"
#include "tests/support/cDebugRecorder.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/cTestComponents.h"
#include "tests/support/expectMessage.h"
#include "tests/support/expectRefusal.h"

namespace {

using ncs::cInterfaceDep;
using ncs::cInterfaceDesc;
using ntest::cTestComponent;
using ntest::cTestInterface;

class cAbstractComponentTest : public ntest::cSystemFixture {
protected:
    void SetUp() override
    {
        cSystemFixture::SetUp();
        mpManager = std::make_unique<ncs::cModuleMgr>(npi::system().coreExtensions);
        mpUser = create("user");
    }
    void TearDown() override
    {
        mpUser.reset();
        mpManager.reset();
        cSystemFixture::TearDown();
    }
    std::unique_ptr<cTestComponent> create(char const* name)
    {
        return std::make_unique<cTestComponent>(*mpManager, name, &mLog);
    }

    std::string mLog;
    std::unique_ptr<ncs::cModuleMgr> mpManager;
    std::unique_ptr<cTestComponent> mpUser;
};

TEST_F(cAbstractComponentTest, isNumberedWhereItLives)
{
    mpUser->local = false;
    mpUser->setComponentID(7);
    EXPECT_EQ(ntest::text(mpUser->address().toString()), "1:7");
    EXPECT_FALSE(mpUser->location().address().valid());
}

TEST_F(cAbstractComponentTest, requiresNothingThatIsGone)
{
    mpUser->addLocalRequiredComponent(nullptr);
    EXPECT_FALSE(mpUser->componentDepModified());
    auto used = create("used");
    auto const require = [&] { mpUser->addLocalRequiredComponent(used.get()); };
    require();
    EXPECT_TRUE(mpUser->componentDepModified());
    require();
    mpUser->addLocalRequiredComponent(mpUser.get());
    used->addLocalRequiredComponent(mpUser.get()); // goes before what it requires
    auto const check = [&] {
        auto const* const gone = used.get();
        used.reset();
        EXPECT_FALSE(mpUser->requiresComponent(gone));
        EXPECT_TRUE(mpUser->requires(mpUser.get()));
        used = create("used");
    };
    check();
    if (ntest::cFailingMemory::isAvailable())
        ntest::failEachRequest(require, check);
    used->addLocalRequiredComponent(mpUser.get());
    mpUser.reset(); // before its user
}

TEST_F(cAbstractComponentTest, listsItsDependencies)
{
    ntest::cDebugRecorder const recorder;
    auto const createDep = [](auto& owner) {
        return std::make_unique<cInterfaceDep>(owner, cInterfaceDesc(), nullptr,
                                               cInterfaceDep::saUseExcplicit);
    };
    auto own = createDep(*mpUser), foreign = createDep(*mpManager), former = createDep(*mpManager);
    mpUser->recalcInterfaceDeps();
    EXPECT_EQ(recorder.text(),
              "cAbstractComponent::addInterfaceDep...\ncAbstractComponent::Recalcing deps...\n");
    mpUser->addInterfaceDep(former.get());
    mpUser->addInterfaceDep(former.get());
    for (unsigned int i = 0; i < 2; ++i) {
        mpUser->resetInterfaceDepModification();
        mpUser->removeInterfaceDep(former.get()); // the second time it is not there
        EXPECT_TRUE(mpUser->interfaceDepModified());
        ASSERT_EQ(mpUser->interfaceDeps().size(), 1u);
    }
    mpUser->addInterfaceDep(foreign.get());
    create("other")->addInterfaceDep(own.get()); // dies and leaves it its owner
    own.reset();
    foreign.reset();
    EXPECT_EQ(mpUser->interfaceDeps().size(), 0u);
    own = createDep(*mpUser);
    mpUser.reset(); // before its dependency, and before one that it had
}

// What the first dependency does when it is bound, and the dependencies that are bound then.
TEST_F(cAbstractComponentTest, recalculatesWhatIsStillThere)
{
    cTestInterface provided("i");
    auto const provider = create("provider");
    provider->addInterface(provided);
    mpManager->addComponent(*provider);

    std::vector<std::unique_ptr<cInterfaceDep>> deps;
    auto const remove = [&](size_t index) { mpUser->removeInterfaceDep(deps[index].get()); };
    struct {
        char const* name;
        std::function<void()> action;
        char const* bound;
    } const rows[] = {
        {"removes another", [&] { remove(2); }, "013"},
        {"destroys others", [&] { deps[1].reset(), deps[3].reset(); }, "02"},
        {"adds one again", [&] { remove(1), mpUser->addInterfaceDep(deps[1].get()); }, "023"},
        {"destroys the component", [&] { mpUser.reset(); }, "0"},
        {"destroys itself, recalculates, destroys the component",
         [&] { deps[0].reset(), mpUser->recalcInterfaceDeps(), mpUser.reset(); }, "0123"},
    };
    std::string bound;
    std::vector<std::unique_ptr<cTestInterface>> locals;
    auto const wanted = cTestInterface::describe("i", cInterfaceDesc::itRequired);
    for (auto const& row : rows) {
        SCOPED_TRACE(row.name);
        mpUser = create("user");
        bound.clear();
        for (char const name : {'0', '1', '2', '3'}) {
            auto& local = *locals.emplace_back(std::make_unique<cTestInterface>("local"));
            local.onConnect = [&, name] { bound += name, name == '0' ? row.action() : void(); };
            deps.push_back(
                std::make_unique<cInterfaceDep>(*mpUser, wanted, &local, cInterfaceDep::saUseFirstBest));
        }
        mpUser->recalcInterfaceDeps();
        EXPECT_EQ(bound, row.bound);
        deps.clear();
    }
}

TEST_F(cAbstractComponentTest, copiesTheFirstPrototypeOfThatName)
{
    using tPrototype = nstd::tAutoPtr<nstd::cAbstractException>;
    nstd::cRuntimeException first(nstd::makeMessage("first"));
    mpUser->registerRemoteException(tPrototype(&first, nstd::tAutoPtrType::ptUnowned));
    mpUser->registerRemoteException(tPrototype(new nstd::cRuntimeException(nstd::makeMessage("second"))));
    nsa::cDeserializeBinary stream;
    tPrototype const copy = mpUser->tryCreateRegisteredException("cRuntimeException", stream);
    ASSERT_TRUE(copy);
    EXPECT_EQ(ntest::messageOf(*copy), "first");
    EXPECT_FALSE(mpUser->tryCreateRegisteredException("cBugException", stream));
}

// The manager destroys the newest first; that one takes along one that is still registered.
TEST_F(cAbstractComponentTest, leavesTheRegistryAndOutlivesIt)
{
    auto* const owned = create("owned").release();
    mpManager->addComponent(nstd::tAutoPtr<ncs::cAbstractComponent>(owned));
    delete owned;
    EXPECT_EQ(mpManager->hasComponent(nstd::cAsciiString("owned")), nullptr);

    auto part = create("part");
    auto whole = create("whole");
    whole->onDestroyed = [&] { part.reset(); };
    mpManager->addComponent(*mpUser);
    mpManager->addComponent(*part);
    mpManager->addComponent(nstd::tAutoPtr<ncs::cAbstractComponent>(whole.release()));
    auto const unregistered = create("unregistered");
    cInterfaceDep const dependency(*unregistered, cInterfaceDesc(), nullptr, cInterfaceDep::saUseFirstBest);
    mpManager.reset();
    EXPECT_EQ(mLog, "~owned ~whole ~part ");
    mpUser->removeLater();
    unregistered->removeLater();
    ntest::expectAssertion([&] { mpUser->moduleMgr(); }, "mpModuleMgr != 0",
                           "nel_core/ncs/cAbstractComponent");
}

TEST(cManagedComponentTest, needsAComponent)
{
    ntest::expectMessage<nstd::cBugException>(
        [] { ncs::cManagedComponent const none(nstd::tAutoPtr<ncs::cAbstractComponent>{}); },
        "Assertion failed in file nel_core/ncs/cManagedComponent:20. (mpComponentGuard.get())!");
}

TEST(cAbstractPlugInTest, isNoCoreExtension)
{
    ncs::cAbstractPlugIn plugIn;
    plugIn.info().setName("caf\xE9");
    ntest::expectMessage<nstd::cRuntimeException>(
        [&] { plugIn.coreExtension(); }, "Module (\"caf?\") does not provide core extension functionality.");
}

} // namespace
