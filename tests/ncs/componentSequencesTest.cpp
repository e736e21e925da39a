#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <utility>

#include "nel_core/ncs/cInterfaceDep.h"
#include "nel_core/std/cRuntimeException.h"
#include "tests/ncs/cManagerFixture.h"

namespace {

constexpr unsigned int kUnits = 50, kSteps = 1500, kKinds = 7;

/// Random operations, also from inside of slots, against a model of who is there and who uses whom.
class componentSequencesTest : public ntest::cManagerFixture {
public:
    /// Provides one kind of interface and depends on another.
    struct cUnit : ntest::cTestComponent {
        cUnit(componentSequencesTest& sequence, unsigned int kind, unsigned int need)
            : cTestComponent(*sequence.manager),
              test(sequence),
              provided(std::to_string(kind).c_str()),
              dependency(*this,
                         ntest::cTestInterface::describe(std::to_string(need).c_str(),
                                                         ntest::cTestInterface::cDesc::itRequired),
                         nullptr, ncs::cInterfaceDep::saUseFirstBest)
        {
            addInterface(provided);
        }
        ~cUnit() override { test.died(*this); }

        componentSequencesTest& test;
        ntest::cTestInterface provided;
        ncs::cInterfaceDep dependency;
        unsigned int id = 0; ///< counted by the test
        bool isOwned = false;
    };

    unsigned int below(unsigned int limit) { return static_cast<unsigned int>(random() % limit); }
    cUnit* any()
    {
        return units.empty() ? nullptr : std::next(units.begin(), below(unsigned(units.size())))->second;
    }
    void registerUnit()
    {
        if (units.size() >= kUnits)
            return;
        auto* const unit = new cUnit(*this, below(kKinds), below(kKinds));
        unit->isOwned = below(2) == 0;
        unit->delay = below(8) == 0;
        units[unit->id = ++ids] = unit;
        if (unit->isOwned)
            manager->addComponent(nstd::tAutoPtr<ncs::cAbstractComponent>(unit));
        else
            manager->addComponent(*unit);
    }
    void died(cUnit const& unit)
    {
        EXPECT_TRUE(isExpected || told.count(unit.id) != 0) << "nobody was told";
        units.erase(unit.id);
        for (auto use = uses.begin(); use != uses.end();)
            use = use->first == unit.id || use->second == unit.id ? uses.erase(use) : std::next(use);
    }
    void removed(cUnit const& unit)
    {
        EXPECT_TRUE(told.insert(unit.id).second) << "told twice";
        for (auto const& [user, used] : uses)
            EXPECT_TRUE(used != unit.id || user == unit.id || told.count(user) != 0) << "users come first";
    }
    void destroyByHand(cUnit* unit)
    {
        bool const wasExpected = std::exchange(isExpected, true);
        delete unit;
        isExpected = wasExpected;
    }
    void step(unsigned int operation)
    {
        cUnit* const unit = any();
        if (!unit || operation < 8)
            return registerUnit();
        switch (operation) {
        case 8:
        case 9:
        case 10: {
            auto* const used = any();
            uses.emplace(unit->id, used->id);
            return unit->addLocalRequiredComponent(used);
        }
        case 11:
        case 12: return unit->removeLater();
        case 13: return destroyByHand(unit);
        case 14: unit->delay = !unit->delay; return;
        case 15: inSlot = [] { throw nstd::cRuntimeException(nucs::cLIMessage(), nullptr, 0); }; return;
        case 16: inSlot = [] { turn(2); }; return;
        case 17:
        case 18: inSlot = [this] { step(below(15)); }; return;
        default: turn();
        }
    }
    /// Outside of all passes.
    void check()
    {
        for (auto next = units.begin(); next != units.end();) {
            auto* const unit = next++->second;
            if (!unit->isOwned && told.count(unit->id) != 0)
                delete unit;
        }
        EXPECT_EQ(count(), units.size());
    }
    bool isUsed(unsigned int id) const
    {
        auto const isUse = [id](auto const& use) { return use.second == id && use.first != id; };
        return std::any_of(uses.begin(), uses.end(), isUse);
    }

    std::mt19937 random;
    std::map<unsigned int, cUnit*> units;                 ///< those that live
    std::set<std::pair<unsigned int, unsigned int>> uses; ///< user, used
    std::set<unsigned int> told;                          ///< removed units
    unsigned int ids = 0;
    bool isExpected = false; ///< that units die
    std::function<void()> inSlot;
};

TEST_F(componentSequencesTest, removalKeepsItsOrder)
{
    auto const runInSlot = [this](auto) {
        if (auto const function = std::exchange(inSlot, nullptr))
            function();
    };
    listener->onAdded = listener->onRegistered = listener->onModified = runInSlot;
    listener->onRemoved = [&](auto* component) {
        removed(static_cast<cUnit&>(*component));
        runInSlot(component);
    };
    for (unsigned int const seed : {1u, 2u, 3u, 4u, 5u, 6u, 7u, 8u}) {
        SCOPED_TRACE(seed);
        random.seed(seed);
        for (unsigned int n = 0; n < kSteps && !HasFailure(); ++n) {
            try {
                step(below(30));
            } catch (nstd::cAbstractException const&) {
                manager->handleComponentIterationLater();
            }
            check();
        }
        inSlot = nullptr;
        for (auto const& unit : units) {
            unit.second->delay = false;
            unit.second->removeLater();
        }
        unsigned int turns = 0;
        for (; isPassWanted() && turns < 2 * kUnits; ++turns)
            turn();
        EXPECT_LT(turns, 2 * kUnits) << "the queue spins";
        check();
        for (auto const& unit : units)
            EXPECT_TRUE(isUsed(unit.first)) << "something is forgotten";
        isExpected = true;
        manager->removeAllComponentsNow();
        EXPECT_EQ(count(), 0u);
        while (!units.empty())
            delete units.begin()->second;
        isExpected = false;
    }
    EXPECT_GT(told.size(), 100u);
    EXPECT_LT(told.size(), ids);
}

} // namespace
