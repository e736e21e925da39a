#include "nel_core/ncs/cAbstractInterfaceProvider.h"

#include <gtest/gtest.h>

#include "nel_core/ncs/cNoPublicInterfaceException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tPtrList.h"
#include "tests/support/cFailingMemory.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/cTestComponents.h"
#include "tests/support/expectMessage.h"

namespace {

using ncs::cInterfaceDesc;
using ntest::cTestInterface;
using tOwned = nstd::tAutoPtr<ncs::cAbstractInterface>;

class cAbstractInterfaceProviderTest : public ntest::cSystemFixture {
protected:
    cTestInterface* create(char const* name)
    {
        return new cTestInterface(name, cInterfaceDesc::itProvided, &mLog);
    }
    // The names in the order of the indexes.
    std::string names() const
    {
        std::string all;
        auto const interfaces = mpProvider->interfaces();
        for (auto const* const interface : *interfaces)
            all += ntest::text(interface->desc().name());
        EXPECT_EQ(mpProvider->numInterfaces(), all.size());
        return all;
    }

    std::string mLog;
    cTestInterface mA{"a"}, mB{"b"}, mOtherA{"a"};
    nstd::tAutoPtr<ncs::cAbstractInterfaceProvider> mpProvider{new ncs::cAbstractInterfaceProvider};
};

TEST_F(cAbstractInterfaceProviderTest, findsTheFirstOrRaises)
{
    for (auto* const interface : {&mB, &mA, &mOtherA})
        mpProvider->addInterface(*interface);
    EXPECT_EQ(&mpProvider->getInterface("a"), &mA);
    EXPECT_EQ(&mpProvider->getInterface(2), &mOtherA);
    EXPECT_EQ(&mpProvider->findInterface(static_cast<nrmi::cConnectable&>(mOtherA)), &mOtherA);
    auto const wanted = cTestInterface::describe("a", cInterfaceDesc::itRequired);
    EXPECT_EQ(&mpProvider->getMatchingInterface(wanted), &mA);

    using cRuntime = nstd::cRuntimeException;
    auto const noSuch = [](std::string const& name) { return "No such interface (\"" + name + "\")!"; };
    ntest::expectMessage<cRuntime>([&] { mpProvider->getInterface("x"); }, noSuch("x"));
    ntest::expectMessage<ncs::cNoPublicInterfaceException>(
        [&] { mpProvider->findInterface(cTestInterface("a")); }, "No public interface!");
    if (auto const error = ntest::raisedBy<cRuntime>([&] { mpProvider->getInterface(3); })) {
        EXPECT_EQ(ntest::messageOf(*error), noSuch("given by index"));
        EXPECT_NE(dynamic_cast<nstd::cOutOfRangeException const*>(error->history()), nullptr);
    }
    EXPECT_EQ(names(), "baa");
}

TEST_F(cAbstractInterfaceProviderTest, removesEveryRecordAndDeletesOnce)
{
    auto* const owned = create("o");
    mpProvider->addInterface(*owned);
    mpProvider->addInterface(tOwned(owned));
    for (auto* const interface : {&mA, &mB, &mA})
        mpProvider->addInterface(*interface);
    mpProvider->removeInterface(mOtherA);
    EXPECT_EQ(names(), "ooaba");
    mpProvider->removeInterface(mA);
    EXPECT_EQ(names(), "oob");

    auto* const last = create("p");
    mpProvider->addInterface(tOwned(last));
    unsigned int left = 2;
    for (auto* const interface : {owned, last})
        interface->onDestroyed = [&, interface, provider = mpProvider.get()] {
            EXPECT_EQ(provider->numInterfaces(), left);
            provider->removeInterface(*interface);
        };
    mpProvider->removeInterface(*owned);
    left = 0;
    mpProvider.reset(nullptr, nstd::tAutoPtrType::ptObject);
    EXPECT_EQ(mLog, "~o ~p ");
}

TEST_F(cAbstractInterfaceProviderTest, registersOrDeletesWhenMemoryFails)
{
    if (!ntest::cFailingMemory::isAvailable())
        GTEST_SKIP();
    tOwned next;
    auto const create = [&] {
        ASSERT_EQ(next.get(), nullptr);
        next.reset(new cTestInterface("n"), nstd::tAutoPtrType::ptObject);
    };
    create();
    EXPECT_GT(ntest::failEachRequest([&] { mpProvider->addInterface(next); }, create), 2u);
    EXPECT_EQ(names(), "n");
}

} // namespace
