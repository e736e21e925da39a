#include <string>

#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cComponentLoader.h"
#include "nel_core/ncs/cModuleLoadException.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/ncs/cManagerFixture.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/expectMessage.h"
#include "tests/support/modules.h"

using ncs::cComponentLoader;
using ntest::isMapped;

namespace {

class cComponentLoaderTest : public ntest::cManagerFixture {
protected:
    cComponentLoaderTest() { frame.addRef(fixedID, false, true); }

    ncs::cAbstractComponent& load(unsigned int id = 0)
    {
        fixedID = id;
        frame.restartReading();
        return cComponentLoader::load(*manager, name, frame, ncs::cComponentAddr(1, 77));
    }

    std::string const file = ntest::moduleFile("goodComponent");
    nucs::cString const name = ntest::named(ntest::moduleName("goodComponent"));
    piUInt32 fixedID = 0;
    nsa::cReferenceFrame frame;
};

} // namespace

TEST_F(cComponentLoaderTest, registersAComponentThatIsFoundByNameAndUnloadsItsObjectAfterIt)
{
    auto& component = load();
    EXPECT_EQ(&manager->findComponent(name.ascii()), &component);
    EXPECT_EQ(component.deployedBy(), ncs::cComponentAddr(1, 77));
    turn();
    EXPECT_TRUE(component.announced());
    EXPECT_TRUE(isMapped(file));
    component.removeLater();
    turn(4);
    EXPECT_EQ(count(), 0u);
    EXPECT_FALSE(isMapped(file));
}

TEST_F(cComponentLoaderTest, keepsNothingOfAComponentThatCannotBeLoadedOrRegistered)
{
    EXPECT_THROW(cComponentLoader::load(*manager, "/nowhere", frame), ncs::cModuleLoadException);
    auto const nothing = ntest::named(ntest::moduleName("nullInstance"));
    EXPECT_THROW(cComponentLoader::load(*manager, nothing, frame), ncs::cModuleLoadException);
    EXPECT_FALSE(isMapped(ntest::moduleFile("nullInstance")));

    manager->addComponent(
        nstd::tAutoPtr<ncs::cAbstractComponent>(new ntest::cTestComponent(*manager, "x", &log)));
    turn(2);
    ntest::expectMessage<nstd::cRuntimeException>([&] { load(2); }, "Component id (2) not unique!");
    EXPECT_EQ(count(), 1u);
    turn();
    EXPECT_FALSE(isMapped(file));
}

TEST_F(cComponentLoaderTest, takesTheComponentAwayBeforeItsObjectWithoutMemory)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    auto const refusals = ntest::failEachRequest([&] { load(); },
                                                 [&] {
                                                     EXPECT_LE(count(), 1u);
                                                     manager->removeAllComponentsNow();
                                                     turn(2);
                                                 });
    EXPECT_GT(refusals, 0u);
}
