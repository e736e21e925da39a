#include "nel_core/std/tList.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <list>
#include <random>
#include <string>

#include "tests/support/expectRefusal.h"
#include "tests/support/tCountedCopy.h"

namespace {

using cNumbers = nstd::tList<int>;

cNumbers numbers(std::initializer_list<int> values)
{
    cNumbers result;
    for (int value : values)
        result.append(value);
    return result;
}

cNumbers::iterator at(cNumbers& list, unsigned int index)
{
    auto it = list.begin();
    while (index-- != 0)
        ++it;
    return it;
}

// The elements from the front, a star after each that is marked; checks that the way back is the same.
std::string text(cNumbers const& list)
{
    std::string result;
    for (auto it = list.begin(); it != list.end(); ++it)
        result += std::to_string(*it) + (it.isEraseLater() ? "* " : " ");
    std::string back;
    for (auto it = list.end(); it != list.begin();) {
        --it;
        back = std::to_string(*it) + (it.isEraseLater() ? "* " : " ") + back;
    }
    EXPECT_EQ(back, result);
    return result;
}

struct cFailingCall {
    char const* name;
    void (*call)(cNumbers&);
    char const* operation;
};

cFailingCall const kFailingCalls[] = {
    {"step behind the end", [](cNumbers& l) { ++l.end(); }, "cIteratorBase::operator++()"},
    {"step before the start", [](cNumbers& l) { l.start()--; }, "cIteratorBase::operator--()"},
    {"read the end", [](cNumbers& l) { *l.end() = 1; }, "tIterator::operator*()"},
    {"mark nothing", [](cNumbers&) { cNumbers::iterator().eraseLater(); }, "iterator::eraseLater()"},
    {"erase the end", [](cNumbers& l) { l.erase(l.end()); }, "erase(it)"},
    {"exchange with the end", [](cNumbers& l) { l.exchange(l.begin(), l.end()); }, "exchange(..)"},
    {"insert before the start", [](cNumbers& l) { l.insert(l.start(), 1); }, "insert(..)"},
    {"insert at nothing", [](cNumbers& l) { l.insert(cNumbers::iterator(), l); }, "insert(..)"},
};

TEST(tListTest, aMisusedIteratorRaisesAndChangesNothing)
{
    for (auto const& row : kFailingCalls) {
        SCOPED_TRACE(row.name);
        cNumbers list = numbers({1, 2, 3});
        ntest::expectRefusal([&] { row.call(list); }, {"tList", row.operation, ntest::kOutOfBounds});
        EXPECT_EQ(text(list), "1 2 3 ");
    }
}

TEST(tListTest, randomOperationsMatchAModel)
{
    std::mt19937 random(11);
    cNumbers list;
    std::list<int> model;
    for (int step = 0; step < 3000; ++step) {
        int const value = static_cast<int>(random() % 100);
        auto const index = static_cast<unsigned int>(random() % (list.size() + 1));
        auto const it = at(list, index);
        auto const place = std::next(model.begin(), index);
        cNumbers other = numbers({value, value + 1});
        switch (random() % 8) {
        case 0:
            EXPECT_EQ(list.insert(it, value), value);
            model.insert(place, value);
            break;
        case 1:
            list.insert(it, other);
            model.insert(place, {value, value + 1});
            break;
        case 2:
            list.take(it, other);
            EXPECT_TRUE(other.empty());
            model.insert(place, {value, value + 1});
            break;
        case 3:
            if (place != model.end()) {
                auto const second = static_cast<unsigned int>(random() % list.size());
                list.exchange(it, at(list, second));
                std::iter_swap(place, std::next(model.begin(), second));
            }
            break;
        case 4:
            if (model.size() < 40) {
                auto const copy = model;
                list.insert(it, list);
                model.insert(place, copy.begin(), copy.end());
            }
            break;
        default:
            if (place != model.end()) {
                auto const following = list.erase(it);
                EXPECT_TRUE(following == at(list, index));
                model.erase(place);
            }
        }
        ASSERT_EQ(list.size(), model.size());
        ASSERT_TRUE(std::equal(model.begin(), model.end(), list.begin()));
    }
    EXPECT_EQ(text(list), text(cNumbers(list)));
}

TEST(tListTest, markedNodesStayUntilThePurge)
{
    cNumbers list = numbers({0, 1, 2, 3, 4, 5});
    for (unsigned int marked : {0u, 2u, 4u, 5u})
        at(list, marked).eraseLater();
    at(list, 2).cancelEraseLater();
    list.exchange(list.begin(), at(list, 1)); // the mark stays where it is
    EXPECT_EQ(text(list), "1* 0 2 3 4* 5* ");
    EXPECT_EQ(text(cNumbers(list)), "1 0 2 3 4 5 ");
    cNumbers taken;
    taken.take(taken.end(), list);
    taken.take(taken.begin(), taken);
    taken.purge();
    EXPECT_EQ(text(taken), "0 2 3 ");
}

TEST(tListTest, equalElementsAreSortedInAfterEachOther)
{
    struct cKeyed {
        int key, order;
        bool operator<(cKeyed const& other) const { return key < other.key; }
    };
    for (bool const ascending : {true, false}) {
        nstd::tList<cKeyed> list;
        int order = 0;
        for (int key : {2, 1, 2, 3, 1})
            list.insertSorted(cKeyed{key, order++}, ascending);
        std::string seen;
        for (auto const& element : list)
            seen += std::to_string(element.key) + char('a' + element.order);
        EXPECT_EQ(seen, ascending ? "1b1e2a2c3d" : "3d2a2c1b1e");
    }
}

TEST(tListTest, aListMayBeItsOwnArgument)
{
    cNumbers list = numbers({2, 1});
    list.append_net(list);
    list.append(*list.begin());
    auto& self = list;
    list = self;
    EXPECT_EQ(text(list), "2 1 2 1 2 ");
    list.insertSorted(list, true);
    EXPECT_EQ(list.size(), 10u);
}

// Erases its neighbours, whichever there are, when it ends.
struct cNeighbourly {
    ~cNeighbourly()
    {
        if (!mpHome)
            return;
        auto& home = *mpHome;
        for (auto it = home.begin(); it != home.end(); ++it)
            it->mpHome = nullptr; // one of them is enough
        while (!home.empty())
            home.erase(home.begin());
    }
    nstd::tList<cNeighbourly>* mpHome = nullptr;
};

TEST(tListTest, anElementMayEraseOthersWhenItEnds)
{
    for (unsigned int marked = 0; marked < 8; ++marked) {
        nstd::tList<cNeighbourly> list;
        auto const fill = [&] {
            for (unsigned int i = 0; i < 3; ++i) {
                list.append(cNeighbourly()).mpHome = &list;
                if (marked >> i & 1)
                    list.last().eraseLater();
            }
        };
        fill();
        list.purge();
        EXPECT_EQ(list.size(), marked == 0 ? 3u : 0u);
        list.clear();
        EXPECT_TRUE(list.empty());
        fill(); // the list's own end must do as well
    }
}

using cCounted = ntest::tCountedCopy<struct cListTag>;

TEST(tListTest, aFailedCopyChangesNothing)
{
    using cList = nstd::tList<cCounted>;
    struct {
        void (*call)(cList&, cList const&);
        int copies;
    } const rows[] = {
        {[](cList& l, cList const& other) { l.append(*other.begin()); }, 1},
        {[](cList& l, cList const& other) { l.insert(l.last(), other); }, 2},
        {[](cList& l, cList const& other) { l.insertSorted(other, true); }, 2},
        {[](cList& l, cList const& other) { l = other; }, 2},
    };
    cList list, other;
    list.append(cCounted(7));
    for (int value : {1, 2})
        other.append(cCounted(value));
    for (auto const& row : rows)
        for (int copies = 0; copies < row.copies; ++copies) {
            cCounted::copiesLeft = copies;
            EXPECT_THROW(row.call(list, other), cCounted::cRefused);
            EXPECT_TRUE(list.size() == 1 && list.begin()->value == 7);
            EXPECT_EQ(cCounted::living, 3);
        }
    cCounted::copiesLeft = -1;
}

} // namespace
