#include "nel_core/std/tList.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <list>
#include <random>
#include <string>

#include "nel_core/std/cOutOfBoundsException.h"
#include "tests/support/raisedBy.h"
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
    {"step without node", [](cNumbers&) { cNumbers::const_iterator()++; }, "cIteratorBase::operator++()"},
    {"read the end", [](cNumbers& l) { *l.end() = 1; }, "tIterator::operator*()"},
    {"read the const end", [](cNumbers& l) { static_cast<void>(*cNumbers::const_iterator(l.end())); },
     "iterator::operator*()"},
    {"mark nothing", [](cNumbers&) { cNumbers::iterator().eraseLater(); }, "iterator::eraseLater()"},
    {"erase the end", [](cNumbers& l) { l.erase(l.end()); }, "erase(it)"},
    {"erase nothing", [](cNumbers& l) { l.erase(cNumbers::iterator()); }, "erase(it)"},
    {"exchange with the end", [](cNumbers& l) { l.exchange(l.begin(), l.end()); }, "exchange(..)"},
    {"exchange with nothing", [](cNumbers& l) { l.exchange(cNumbers::iterator(), l.begin()); },
     "exchange(..)"},
    {"insert before the start", [](cNumbers& l) { l.insert(l.start(), 1); }, "insert(..)"},
    {"insert at nothing", [](cNumbers& l) { l.insert(cNumbers::iterator(), l); }, "insert(..)"},
};

TEST(tListTest, aMisusedIteratorRaisesAndChangesNothing)
{
    for (auto const& row : kFailingCalls) {
        SCOPED_TRACE(row.name);
        cNumbers list = numbers({1, 2, 3});
        auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>([&] { row.call(list); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::text(error->container()), "tList");
        EXPECT_EQ(ntest::text(error->operation()), row.operation);
        EXPECT_EQ(text(list), "1 2 3 ");
    }
}

TEST(tListTest, iteratorsStandBeforeOnAndBehindTheElements)
{
    cNumbers list;
    EXPECT_TRUE(++list.start() == list.end());
    EXPECT_TRUE(list.last() == list.start());
    auto const end = list.end();
    list.append(1);
    list.push_front(0);
    EXPECT_TRUE(end == list.end());
    EXPECT_TRUE(++list.start() == list.begin());
    EXPECT_EQ(*list.last(), 1);
    cNumbers other = numbers({7});
    other.swap(list);
    EXPECT_TRUE(end == other.end()); // positions go with their nodes
    EXPECT_EQ(text(other) + '|' + text(list), "0 1 |7 ");
    list.erase(list.end().node());
    list.erase(nullptr);
    list.erase(list.begin().node());
    EXPECT_TRUE(list.empty());
}

TEST(tListTest, randomOperationsMatchAModel)
{
    std::mt19937 random(11);
    cNumbers list;
    std::list<int> model;
    auto const matches = [&] {
        return std::equal(model.begin(), model.end(), list.begin()) && model.size() == list.size();
    };
    for (int step = 0; step < 3000; ++step) {
        int const value = static_cast<int>(random() % 100);
        auto const index = static_cast<unsigned int>(random() % (list.size() + 1));
        auto const it = at(list, index);
        auto const place = std::next(model.begin(), index);
        cNumbers other = numbers({value, value + 1});
        switch (random() % 7) {
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
        ASSERT_TRUE(matches());
    }
    EXPECT_EQ(text(list), text(cNumbers(list)));
}

TEST(tListTest, anyTwoElementsSwapPlacesAndLeaveTheirMarks)
{
    for (unsigned int i = 0; i < 4; ++i) {
        for (unsigned int j = 0; j < 4; ++j) {
            cNumbers list = numbers({0, 1, 2, 3});
            at(list, 1).eraseLater();
            int expected[] = {0, 1, 2, 3};
            std::swap(expected[i], expected[j]);
            list.exchange(at(list, i), at(list, j));
            std::string order;
            for (int k = 0; k < 4; ++k)
                order += std::to_string(expected[k]) + (k == 1 ? "* " : " ");
            EXPECT_EQ(text(list), order) << i << ' ' << j;
        }
    }
}

TEST(tListTest, markedNodesStayUntilThePurge)
{
    cNumbers list = numbers({0, 1, 2, 3, 4, 5});
    for (auto it = list.begin(); it != list.end(); ++it)
        if (*it % 2 == 0 || *it == 5)
            it.eraseLater();
    at(list, 2).cancelEraseLater();
    EXPECT_EQ(text(list), "0* 1 2 3 4* 5* ");
    EXPECT_EQ(text(cNumbers(list)), "0 1 2 3 4 5 ");
    cNumbers taken;
    taken.take(taken.end(), list);
    taken.take(taken.begin(), taken);
    EXPECT_TRUE(list.empty());
    taken.purge();
    EXPECT_EQ(text(taken), "1 2 3 ");
}

TEST(tListTest, equalElementsAreSortedInAfterEachOther)
{
    struct cKeyed {
        int key, order;
        bool operator<(cKeyed const& other) const { return key < other.key; }
    };
    for (bool const ascending : {true, false}) {
        nstd::tList<cKeyed> list, more;
        int order = 0;
        for (int key : {2, 1, 2, 3, 1})
            list.insertSorted(cKeyed{key, order++}, ascending);
        for (int key : {3, 1})
            more.append(cKeyed{key, order++});
        list.insertSorted(more, ascending);
        std::string seen;
        for (auto const& element : list)
            seen += std::to_string(element.key) + char('a' + element.order);
        EXPECT_EQ(seen, ascending ? "1b1e1g2a2c3d3f" : "3d3f2a2c1b1e1g");
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

struct cWatched : cNumbers {
    ~cWatched() override { clear(); }
    void beforeNodeDestroy(elementNodeType& node) const override { mLog += std::to_string(node.element()); }
    static std::string mLog;
};
std::string cWatched::mLog;

TEST(tListTest, everyNodeIsAnnouncedBeforeItGoes)
{
    {
        cWatched list;
        list.append_net(numbers({1, 2, 3, 4, 5, 6}));
        list.erase(at(list, 1));
        list.erase(list.last().node());
        at(list, 3).eraseLater();
        list.begin().eraseLater();
        list.purge();
    }
    EXPECT_EQ(cWatched::mLog, "261534");
}

TEST(tListTest, deletingANodeUnlinksIt)
{
    cNumbers list = numbers({1, 2, 3});
    EXPECT_EQ(list.start().node()->isElementNode(), nullptr);
    EXPECT_EQ(list.begin().node()->isElementNode()->element(), 1);
    delete at(list, 1).node();
    EXPECT_EQ(text(list), "1 3 ");
}

using cCounted = ntest::tCountedCopy<struct cListTag>;

TEST(tListTest, aFailedCopyChangesNothing)
{
    using cList = nstd::tList<cCounted>;
    void (*const kCalls[])(cList&, cList const&) = {
        [](cList& l, cList const& other) { l.append(*other.begin()); },
        [](cList& l, cList const& other) { l.insert(l.last(), other); },
        [](cList& l, cList const& other) { l.insertSorted(other, true); },
        [](cList& l, cList const& other) { l = other; },
    };
    auto const digits = [](cList const& list) {
        std::string result;
        for (auto const& element : list)
            result += std::to_string(element.value);
        return result;
    };
    for (auto const call : kCalls) {
        cList list, other;
        for (int i = 1; i < 3; ++i) {
            list.append(cCounted(i));
            other.append(cCounted(i + 2));
        }
        bool done = false;
        for (int copies = 0; !done; ++copies) {
            cCounted::copiesLeft = copies;
            int const living = cCounted::living;
            try {
                call(list, other);
                done = true;
                EXPECT_GT(copies, 0);
            } catch (cCounted::cRefused const&) {
                EXPECT_EQ(digits(list), "12");
                EXPECT_EQ(cCounted::living, living);
            }
        }
        cCounted::copiesLeft = -1;
        EXPECT_NE(digits(list), "12");
    }
    EXPECT_EQ(cCounted::living, 0);
}

} // namespace
