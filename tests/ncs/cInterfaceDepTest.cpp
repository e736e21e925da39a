#include "nel_core/ncs/cInterfaceDep.h"

#include "nel_core/ncs/cNoSuchModuleException.h"
#include "nel_core/ncs/cUnmatchedInterfaceException.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/ncs/cManagerFixture.h"
#include "tests/support/expectMessage.h"

namespace {

using ncs::cInterfaceDep;
using ntest::cTestComponent;
using ntest::cTestInterface;
using ntest::raisedBy;
using cDesc = cTestInterface::cDesc;
using tFunction = std::function<void()>;

/// The places from which a dependency calls out.
enum Place { plConnect, plMatched, plDisconnect, plUnmatched, kPlaces };

/// A dependency of `owner`, component 2, on the interface "x". "c" and "d" are logged for its local
/// interface, "M3" when it binds to component 3, and "U"; then the function of the place is called.
class cInterfaceDepTest : public ntest::cManagerFixture, public nrmi::cConnectable {
public:
    void SetUp() override
    {
        cManagerFixture::SetUp();
        listener.reset();
        owner = &add("owner");
        make(cInterfaceDep::saUseFirstBest);
        turn(2);
    }
    void TearDown() override
    {
        dep.reset();
        cManagerFixture::TearDown();
    }

    piVoid sltMatched(ncs::cComponentAddr const& provider)
    {
        return call(plMatched, "M" + std::to_string(provider.moduleID()) + " ");
    }
    piVoid sltUnmatched() { return call(plUnmatched, "U "); }
    piVoid call(Place place, std::string const& event)
    {
        log += event;
        if (auto const function = std::exchange(on[place], nullptr))
            function();
        return piVoid();
    }
    void make(cInterfaceDep::selectionAlgo algorithm)
    {
        dep = std::make_unique<cInterfaceDep>(*owner, local.desc(), &local, algorithm);
        dep->sigMatched.connect(nrmi::slot(this, &cInterfaceDepTest::sltMatched));
        dep->sigUnmatched.connect(nrmi::slot(this, &cInterfaceDepTest::sltUnmatched));
        local.onConnect = [this] { call(plConnect, "c "); };
        local.onDisconnect = [this] { call(plDisconnect, "d "); };
    }
    /// Numbers from 3 on.
    cTestComponent& addProvider(char const* interface = "x", cDesc::InterfaceType type = cDesc::itProvided)
    {
        auto& component = *new cTestComponent(*manager);
        component.addInterface(nstd::tAutoPtr<ncs::cAbstractInterface>(new cTestInterface(interface, type)));
        manager->addComponent(nstd::tAutoPtr<ncs::cAbstractComponent>(&component));
        return component;
    }
    static void raise() { throw nstd::cRuntimeException(nucs::cLIMessage(), nullptr, 0); }
    void expectUnbound()
    {
        EXPECT_FALSE(dep->matched());
        EXPECT_TRUE(raisedBy<ncs::cUnmatchedInterfaceException>([&] { dep->address(); }));
    }

    cTestComponent* owner = nullptr; ///< the manager's
    cTestInterface local{"x", cDesc::itRequired};
    std::unique_ptr<cInterfaceDep> dep;
    tFunction on[kPlaces];
};

TEST_F(cInterfaceDepTest, bindsTheFirstAndThenTheNextProvider)
{
    addProvider("x", cDesc::itRequired);
    addProvider("y");
    auto& first = addProvider();
    auto& second = addProvider();
    news();
    on[plMatched] = [&] { EXPECT_FALSE(dep->matched()); };
    turn(2);
    EXPECT_EQ(news(), "c M5 ");
    EXPECT_EQ(local.provided, first.tryFindInterface("x"));
    EXPECT_EQ(dep->address(), first.address());

    first.removeLater();
    turn();
    EXPECT_EQ(news(), "");
    EXPECT_TRUE(dep->matched());
    EXPECT_TRUE(raisedBy<ncs::cUnmatchedInterfaceException>([&] { dep->address(); }));
    turn();
    EXPECT_EQ(news(), "d U c M6 ");
    second.removeLater();
    turn(2);
    dep->invalidateMatch();
    EXPECT_EQ(news(), "d U d ");
    expectUnbound();
}

TEST_F(cInterfaceDepTest, possibleLocationsNameHosts)
{
    auto const location = addProvider().location();
    ncs::cComponentLocation const elsewhere(ncs::cComponentAddr(), "elsewhere", "", location.pid());
    ncs::cComponentLocation const sameHost(ncs::cComponentAddr(4, 5), location.hostName(), "other", 1);
    ntest::expectMessage<nstd::cBugException>(
        [&] { dep->addPossibleLocation(sameHost, false); },
        "The operation \"cInterfaceDep::addPossibleLocation(useUnpredictable)\" is not supported!");
    dep->addPossibleLocation(elsewhere, true);
    turn(2);
    expectUnbound();
    dep->addPossibleLocation(sameHost, true);
    dep->recalc();
    EXPECT_EQ(dep->address(), location.address());
}

TEST_F(cInterfaceDepTest, otherSelections)
{
    addProvider();
    auto& second = addProvider();
    turn(2);
    news();
    dep->setExplicit(second.location());
    EXPECT_EQ(news(), "d U c M4 ");
    second.removeLater();
    turn(3);
    EXPECT_EQ(news(), "d U ");
    EXPECT_TRUE(raisedBy<ncs::cNoSuchModuleException>([&] { dep->setExplicit(ncs::cComponentLocation()); }));
    dep->setExplicit(owner->location());
    addProvider();
    turn(2);
    expectUnbound();

    make(cInterfaceDep::saUseInteractive);
    ntest::expectMessage<nstd::cBugException>(
        [] { turn(); }, "The operation \"cInterfaceDep::saUseInteractive\" is not supported!");
    manager->removeAllComponentsNow();
    dep->recalc();
}

// The dependency is asked again while it is being bound or unbound.
TEST_F(cInterfaceDepTest, nestedCallsLeaveOneBinding)
{
    auto& first = addProvider();
    auto& second = addProvider();
    tFunction const recalc = [&] { dep->recalc(second); };
    tFunction const dissolve = [&] { dep->invalidateMatch(); };
    tFunction const choose = [&] { dep->setExplicit(second.location()); };
    tFunction const fail = [&] {
        on[plDisconnect] = raise;
        EXPECT_TRUE(raisedBy<nstd::cRuntimeException>(dissolve));
    };
    struct cRow {
        Place place;
        tFunction function;
        char const* events;
        unsigned int bound;
    } const rows[] = {
        {plMatched, recalc, "d U c M3 ", 3},        {plUnmatched, recalc, "d U c M3 ", 3},
        {plMatched, dissolve, "d U c M3 d ", 0},    {plUnmatched, dissolve, "d U d c M3 ", 3},
        {plMatched, choose, "d U c M3 d c M4 ", 4}, {plUnmatched, choose, "d U d c M4 ", 4},
        {plUnmatched, fail, "d U d c M3 ", 3},
    };
    for (auto const& row : rows) {
        SCOPED_TRACE(row.events);
        make(cInterfaceDep::saUseFirstBest);
        dep->recalc();
        news();
        on[row.place] = row.function;
        dep->setExplicit(first.location());
        EXPECT_EQ(news(), row.events);
        EXPECT_EQ(dep->matched() ? dep->address().moduleID() : 0, row.bound);
    }
}

// Whatever a call from one of the places does, nothing is left of the binding to `provider`.
TEST_F(cInterfaceDepTest, everyCallMayDestroyAndRaise)
{
    auto& former = addProvider();
    cTestComponent* provider = nullptr;
    tFunction const functions[] = {
        [&] { dep.reset(); },
        raise,
        [&] { delete provider; },
        [&] {
            provider->removeLater();
            turn(2);
        },
    };
    for (auto const& function : functions) {
        for (auto const place : {plConnect, plMatched, plDisconnect, plUnmatched}) {
            SCOPED_TRACE(testing::Message() << &function - functions << " at " << place);
            make(cInterfaceDep::saUseFirstBest);
            if (place >= plDisconnect) {
                dep->recalc(former);
                dep->sltComponentRemoved(former);
            }
            provider = &addProvider();
            on[place] = function;
            local.connects = local.disconnects = 0;
            try {
                dep->recalc(*provider);
            } catch (nstd::cRuntimeException const&) {
                EXPECT_EQ(&function, &functions[1]);
                EXPECT_TRUE(raisedBy<ncs::cUnmatchedInterfaceException>([&] { dep->address(); }));
            }
            EXPECT_FALSE(on[place]) << "was not called";
            if (!dep)
                continue;
            if (&function >= &functions[2]) {
                expectUnbound();
                EXPECT_EQ(local.provided, nullptr);
            }
            EXPECT_LE(local.connects, local.disconnects + (place == plConnect ? 1 : 0));
            dep->recalc(former); // goes on
            EXPECT_EQ(dep->address(), former.address());
        }
    }
}

// A slot that comes before that of the dependency destroys the provider, or has it chosen again.
TEST_F(cInterfaceDepTest, aProviderThatIsBeingRemovedIsGone)
{
    listener = std::make_unique<ntest::cManagerListener>(*manager, log);
    for (bool const isDestroyed : {true, false}) {
        make(cInterfaceDep::saUseFirstBest);
        auto* const provider = &addProvider();
        turn(2);
        EXPECT_TRUE(dep->matched());
        listener->onRemoved = [&](auto* leaving) {
            if (leaving != provider)
                return;
            if (isDestroyed) {
                delete provider;
                return;
            }
            dep->invalidateMatch();
            dep->recalc();
            dep->recalc(*provider);
            EXPECT_TRUE(
                raisedBy<ncs::cNoSuchModuleException>([&] { dep->setExplicit(provider->location()); }));
        };
        provider->removeLater();
        add("later").removeLater();
        turn(2);
        expectUnbound();
    }
}

} // namespace
