#include <filesystem>
#include <functional>
#include <string>

#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cModuleLoadException.h"
#include "nel_core/ncs/cPlugInMgr.h"
#include "nel_core/pi/cAbstractClassLoader.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/modules.h"
#include "tests/support/raisedBy.h"

using ncs::cPlugInGuard;
using ncs::cPlugInMgr;
using ntest::isMapped;

namespace {

struct cParting : ncs::cAbstractPlugIn {
    explicit cParting(std::function<void()> atEnd_) : atEnd(std::move(atEnd_)) { }
    ~cParting() override { atEnd(); }
    std::function<void()> atEnd;
};

class cPlugInMgrTest : public ntest::cSystemFixture {
protected:
    /// The plug-in writes its letter into the log and calls the function when it goes.
    nstd::tAutoPtr<cPlugInGuard> guard(
        char letter, std::function<void()> atEnd = [] {})
    {
        nstd::tAutoPtr<ncs::cAbstractPlugIn> made(new cParting([=] {
            log += letter;
            atEnd();
        }));
        return nstd::tAutoPtr<cPlugInGuard>(new cPlugInGuard(made));
    }

    std::string log;
    std::string const file = ntest::moduleFile("goodPlugIn");
    nucs::cString const name = ntest::named(ntest::moduleName("goodPlugIn"));
};

} // namespace

TEST_F(cPlugInMgrTest, givesEveryLoadAPlugInAndALoader)
{
    piInt32 alive = 0;
    nsa::cReferenceFrame frame;
    frame.addRef(alive, true, true);
    {
        cPlugInMgr manager;
        auto const first = manager.loadPlugIn(name, frame);
        frame.restartReading();
        auto second = manager.loadPlugIn(name, frame);
        EXPECT_EQ(alive, 2);
        EXPECT_NE(first->plugIn(), second->plugIn());
        EXPECT_NE((*first)->classLoader(), (*second)->classLoader());
        EXPECT_FALSE((*first)->isStatic());
        EXPECT_EQ(ntest::text((*first)->moduleInfo().context()), "");
        EXPECT_TRUE(manager.plugIns().empty());
        manager.registerPlugIn(second);
        manager.registerPlugIn(nstd::tAutoPtr<cPlugInGuard>());
        manager.unloadPlugIn(first->plugIn());
        EXPECT_EQ(manager.plugIns().size(), 1u);
        EXPECT_EQ(alive, 2);
    }
    EXPECT_EQ(alive, 0);
    EXPECT_FALSE(isMapped(file));
    EXPECT_NE(cPlugInMgr().loadPlugIn(name)->plugIn(), nullptr);
    EXPECT_FALSE(isMapped(file)) << "of a guard that was dropped";
    EXPECT_THROW(static_cast<void>(cPlugInMgr().loadPlugIn("/nowhere")), ncs::cModuleLoadException);
}

TEST_F(cPlugInMgrTest, letsDestructorsChangeTheList)
{
    cPlugInMgr manager;
    auto victim = guard('v');
    auto* const plugIn = victim->plugIn();
    manager.registerPlugIn(guard('a', [&] {
        manager.unloadPlugIn(plugIn);
        manager.registerPlugIn(guard('n', [&] { manager.unloadAll(); }));
    }));
    auto* const first = (*manager.plugIns().begin())->plugIn();
    manager.registerPlugIn(victim);
    manager.registerPlugIn(guard('z'));
    manager.unloadPlugIn(first);
    EXPECT_EQ(log, "av");
    manager.unloadAll();
    EXPECT_EQ(log, "avzn");

    manager.registerPlugIn(guard('b', [&] { manager.registerPlugIn(guard('c')); }));
    manager.unloadAll();
    EXPECT_EQ(log, "avznbc");
    EXPECT_TRUE(manager.plugIns().empty());
}

TEST_F(cPlugInMgrTest, deletesALoaderWithTheLastOfItsPlugIns)
{
    auto* const loader = npi::cPlatform::createClassLoader(ntest::named(file)).release();
    auto second = guard('2');
    {
        auto const first = guard('1', [&] { second.reset(nullptr, nstd::tAutoPtrType::ptObject); });
        for (auto* plugIn : {first->plugIn(), second->plugIn()}) {
            loader->incRef();
            plugIn->setClassLoader(loader, nstd::cAsciiString());
        }
        EXPECT_TRUE(isMapped(file));
    }
    EXPECT_EQ(log, "12");
    EXPECT_FALSE(isMapped(file));
}

TEST_F(cPlugInMgrTest, leaksNothingWithoutMemory)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    // A copy, because an entry that has run out of memory leaves it mapped.
    char folder[] = "/tmp/nelModulesXXXXXX";
    ASSERT_NE(::mkdtemp(folder), nullptr);
    auto const copy = ntest::named(folder + std::string("/copy"));
    std::filesystem::copy(file, folder + std::string("/libcopy.so"));
    long long memory = 0;
    for (auto const mode : {ntest::cFailingMemory::moOnce, ntest::cFailingMemory::moShortage}) {
        ntest::failEachRequest(
            [&] {
                cPlugInMgr manager;
                manager.registerPlugIn(manager.loadPlugIn(copy));
            },
            [] {}, mode);
        isMapped("");
        memory = memory ? memory : ntest::cFailingMemory::inUse();
    }
    EXPECT_EQ(ntest::cFailingMemory::inUse(), memory);
    std::filesystem::remove_all(folder);
}
