#include "nel_core/ncs/cRMIException.h"

#include <gtest/gtest.h>

#include <string>

#include "nel_core/ncs/cModuleLoadException.h"
#include "nel_core/ncs/cNoSuchModuleException.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"
#include "tests/support/storedForm.h"
#include "tests/support/tNamedExceptions.h"

namespace {

using ncs::cComponentAddr;
using ncs::cComponentLocation;
using ncs::cRMIException;
using nstd::cAbstractException;
using ntest::ascii;
using ntest::number;

class cRMIExceptionTest : public ntest::cSystemFixture {
protected:
    static void expectFields(cAbstractException const& exception, cComponentLocation const& location,
                             unsigned int index, unsigned int key, unsigned int operation)
    {
        auto const& error = dynamic_cast<cRMIException const&>(exception);
        EXPECT_EQ(error.location(), location);
        EXPECT_EQ(error.interfaceIndex(), index);
        EXPECT_EQ(error.interfaceKey(), key);
        EXPECT_EQ(static_cast<unsigned int>(error.operation()), operation);
        EXPECT_EQ(error.signalSlotName(), "slt");
    }
    cComponentLocation const mAlpha{"1:7-4711@alpha:x"};
};

TEST_F(cRMIExceptionTest, theInterfaceIsNamedByKeyOrByIndex)
{
    cRMIException const byKey(12, cRMIException::opConnectSignal, "slt");
    expectFields(byKey, cComponentLocation(), 0, 12, 1);
    cRMIException error(mAlpha, 3, cRMIException::opCallSlot, "slt");
    expectFields(cRMIException(error), mAlpha, 3, 0, 0);
    error = byKey;
    expectFields(error, cComponentLocation(), 0, 12, 1);
    EXPECT_EQ(ntest::messageOf(error), ntest::messageOf(byKey));
}

TEST_F(cRMIExceptionTest, theFieldsFollowTheMessageInAStream)
{
    auto const own = number(7) + number(1) + ascii("alpha") + ascii("x") + number(4711) + number(3)
                     + number(4) + number(9) + ascii("slt");
    auto const bytes = ntest::boolean(true) + ascii("cRMIException") + number(1) + ntest::boolean(false)
                       + ntest::message("m", 0, "") + own + ntest::boolean(false);
    using cFactory = ntest::tNamedExceptions<cRMIException>;
    auto const rebuilt = ntest::read(
        bytes, [](auto& source) { return cAbstractException::createFromStream(source, cFactory()); });
    ASSERT_TRUE(rebuilt);
    EXPECT_EQ(ntest::messageOf(*rebuilt), "m");
    expectFields(*rebuilt, mAlpha, 3, 4, 9);
    EXPECT_EQ(ntest::written([&](auto& target) { rebuilt->storeRecursive(target); }), bytes);

    auto const base = number(1) + ntest::boolean(false) + ntest::message("m", 0, "");
    for (std::size_t cut = 0; cut < own.size(); ++cut) {
        cRMIException error(mAlpha, 5, cRMIException::opCallSlot, "slt");
        EXPECT_THROW(ntest::read(base + own.substr(0, cut), [&](auto& source) { error.load(source); }),
                     cAbstractException);
        expectFields(error, mAlpha, 5, 0, 0);
    }
}

TEST_F(cRMIExceptionTest, itsRelativesCarryTheirFieldsAlong)
{
    ncs::cNoSuchModuleException noModule("1:7");
    EXPECT_EQ(noModule.address(), cComponentAddr());
    noModule = ncs::cNoSuchModuleException(cComponentAddr(1, 7));
    EXPECT_EQ(noModule.address(), cComponentAddr(1, 7));
    EXPECT_EQ(ncs::cNoSuchModuleException(mAlpha).address(), cComponentAddr(1, 7));

    using ncs::cModuleLoadException;
    cModuleLoadException notLoaded(cModuleLoadException::kpNotLoaded, "a", nucs::cLIMessage());
    notLoaded = cModuleLoadException(cModuleLoadException::kpInvalidModule, "b", nucs::cLIMessage());
    EXPECT_EQ(notLoaded.problem(), cModuleLoadException::kpInvalidModule);
    EXPECT_EQ(notLoaded.fileName(), "b");
}

} // namespace
