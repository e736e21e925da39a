#include "nel_core/ncs/cAbstractInterface.h"

#include <gtest/gtest.h>

#include "nel_core/rmi/cAbstractRMIFactory.h"
#include "nel_core/rmi/cPublicSignal.h"
#include "nel_core/rmi/publicSlotCall.h"
#include "nel_core/std/tPtrList.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/cTestComponents.h"
#include "tests/support/storedForm.h"

namespace {

using ncs::cInterfaceDesc;
using ntest::cTestInterface;

class cMeter : public cTestInterface {
public:
    explicit cMeter(char const* name) : cTestInterface(name)
    {
        nrmi::publishSlot(this, name, &cMeter::sltRead, "a value");
        nrmi::publishSlot(this, "again", &cMeter::sltRead, "");
        sigChanged.exportSignal(*this, "changed", nrmi::cAbstractSignal::itDefault, "");
    }
    piUInt32 sltRead(piUInt32 const& channel) { return channel; }

    nrmi::localSignal1<piVoid, piUInt32> sigChanged;
};

class cAbstractInterfaceTest : public ntest::cSystemFixture, protected nrmi::cAbstractRMIFactory {
protected:
    nstd::tAutoPtr<nrmi::cAbstractSlotCall> createRemoteSlotCall(nrmi::cConnectable& object) override
    {
        return nstd::tAutoPtr<nrmi::cAbstractSlotCall>(new nrmi::cAbstractSlotCall(object, nullptr));
    }
    nrmi::cAbstractSignal& createRemoteSignal(unsigned int) override { return mSignal; }
    void load(std::string const& bytes)
    {
        ntest::read(bytes, [&](auto& stream) { mProxy.load(stream, *this); });
    }
    static std::string stored(ncs::cAbstractInterface const& interface)
    {
        return ntest::written([&](auto& stream) { interface.store(stream); });
    }

    nrmi::localSignal0<piVoid> mSignal;
    cMeter mMeter{"meter"};
    cMeter mProxy{"former"}; ///< has slots and signals of its own before it is loaded
};

TEST_F(cAbstractInterfaceTest, matchesTheOtherSideByNameOnly)
{
    EXPECT_FALSE(mMeter.matches(mMeter.desc()));
    EXPECT_TRUE(mMeter.matches(cInterfaceDesc(cInterfaceDesc::itRequired, "meter", "other", 9, "else")));
    EXPECT_FALSE(mMeter.matches(cTestInterface::describe("Meter", cInterfaceDesc::itRequired)));
    EXPECT_NO_THROW(mMeter.sigInterfaceEvent(mMeter));
}

TEST_F(cAbstractInterfaceTest, travelsAsDescriptionSlotsAndSignals)
{
    auto const contextOf = [](auto const& published) {
        return ntest::context(ntest::written([&](auto& stream) {
            for (auto const* const item : published)
                *item >> stream;
        }));
    };
    std::string const desc = ntest::written([&](auto& stream) { mMeter.desc() >> stream; });
    EXPECT_EQ(stored(mMeter),
              desc + contextOf(*mMeter.hasPublicSlots()) + contextOf(*mMeter.hasPublicSignals()));
    EXPECT_EQ(stored(cTestInterface(mMeter.desc())), desc + ntest::context("") + ntest::context(""));
}

TEST_F(cAbstractInterfaceTest, becomesWhatIsReadUnlessItIsCut)
{
    std::string const whole = stored(mMeter);
    mMeter.codRSignals().clear(); // a context that is cut between two signals merely ends there
    std::string const noSignals = stored(mMeter);
    for (size_t length = 0; length < noSignals.size(); ++length)
        EXPECT_THROW(load(noSignals.substr(0, length)), nstd::cAbstractException) << length;
    load(whole);
    EXPECT_EQ(stored(mProxy), whole);
}

} // namespace
