#include "nel_core/std/tVector.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "tests/support/raisedBy.h"
#include "tests/support/tCountedCopy.h"

namespace {

using cNumbers = nstd::tVector<int>;

cNumbers numbers(std::initializer_list<int> values)
{
    cNumbers result;
    for (int value : values)
        result.append(value);
    return result;
}

std::string text(cNumbers const& vector)
{
    std::string result;
    for (int value : vector)
        result += std::to_string(value) + ' ';
    return result;
}

struct cFailingCall {
    char const* name;
    void (*call)(cNumbers&);
    char const* operation;
    cSTDExceptions::OutOfRangeType type;
    long long value, max;
};

// On a vector of the three elements 1 2 3.
cFailingCall const kFailingCalls[] = {
    {"at the count", [](cNumbers& v) { v.at(3); }, "at", cSTDExceptions::ortIndex, 3, 2},
    {"insert beyond the end", [](cNumbers& v) { v.insert(4, 9); }, "insert", cSTDExceptions::ortIndex, 4, 3},
    {"insert itself beyond the end", [](cNumbers& v) { v.insert(4, v); }, "insert", cSTDExceptions::ortIndex,
     4, 3},
    {"insert and drop at the end", [](cNumbers& v) { v.insertRemoveLast(3, 9); }, "insertSameSize",
     cSTDExceptions::ortIndex, 3, 2},
    {"remove the count", [](cNumbers& v) { v.remove(3); }, "remove", cSTDExceptions::ortValue, 3, 3},
    {"remove far away", [](cNumbers& v) { v.remove(0xFFFFFFFFu); }, "remove", cSTDExceptions::ortValue,
     0xFFFFFFFFll, 3},
};

TEST(tVectorTest, aFailedCallNamesTheLimitAndChangesNothing)
{
    for (auto const& row : kFailingCalls) {
        SCOPED_TRACE(row.name);
        cNumbers vector = numbers({1, 2, 3});
        auto const error = ntest::raisedBy<nstd::cOutOfRangeException>([&] { row.call(vector); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::text(error->container()), "tVector");
        EXPECT_EQ(ntest::text(error->operation()), row.operation);
        EXPECT_EQ(error->rangeType(), row.type);
        EXPECT_EQ(error->value(), row.value);
        EXPECT_EQ(error->min(), 0);
        EXPECT_EQ(error->max(), row.max);
        EXPECT_EQ(text(vector), "1 2 3 ");
    }
    auto const error = ntest::raisedBy<nstd::cOutOfRangeException>([] { cNumbers().at(0); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->max(), 0);
}

TEST(tVectorTest, thePoolGrowsInSteps)
{
    cNumbers vector;
    EXPECT_EQ(vector.poolSize(), 0u);
    for (int i = 0; i < 11; ++i) {
        vector.append(i);
        EXPECT_EQ(vector.poolSize(), i < 10 ? 10u : 20u);
    }
    vector.setNumElementsAhead(0);
    vector.optimizeMemory();
    EXPECT_EQ(vector.poolSize(), 11u);
    vector.setNumElementsAhead(100);
    vector.remove(10);
    vector.append(10);
    EXPECT_EQ(vector.poolSize(), 100u); // a new step counts from the next growth check on
    EXPECT_EQ(text(vector), "0 1 2 3 4 5 6 7 8 9 10 ");
    cNumbers fresh;
    fresh.clear();
    EXPECT_EQ(fresh.poolSize(), 10u);
    fresh.destroyArray(true);
    EXPECT_EQ(fresh.poolSize(), 0u);

    EXPECT_EQ(fresh.getRequiredPoolSize(0), 10u);
    EXPECT_EQ(fresh.getRequiredPoolSize(10), 10u);
    EXPECT_EQ(fresh.getRequiredPoolSize(4294967290u), 4294967290u);
    auto const error = ntest::raisedBy<nstd::cBugException>([&] { fresh.getRequiredPoolSize(4294967291u); });
    ASSERT_TRUE(error.has_value());
    EXPECT_NE(ntest::messageOf(*error).find("(iRequired >= iNewSize)"), std::string::npos);
}

TEST(tVectorTest, randomOperationsMatchAModel)
{
    std::mt19937 random(7);
    cNumbers vector;
    std::vector<int> model;
    for (int step = 0; step < 4000; ++step) {
        int const value = static_cast<int>(random() % 100);
        auto const at = static_cast<unsigned int>(random() % (vector.size() + 1));
        auto const place = model.begin() + at;
        switch (random() % 8) {
        case 0:
        case 1:
            EXPECT_EQ(vector.push_front(value), value);
            model.insert(model.begin(), value);
            break;
        case 2:
            EXPECT_EQ(vector.insert(at, value), value);
            model.insert(place, value);
            break;
        case 3:
            if (place != model.end()) {
                EXPECT_EQ(vector.insertRemoveLast(at, value), value);
                model.insert(place, value);
                model.pop_back();
            }
            break;
        case 4:
            if (model.size() < 60) {
                auto const copy = model;
                vector.insert(at, vector);
                model.insert(place, copy.begin(), copy.end());
            }
            break;
        case 5:
            vector.resize(at + 1);
            model.resize(at + 1);
            break;
        default:
            if (place != model.end()) {
                vector.remove(at);
                model.erase(place);
            }
        }
        ASSERT_EQ(vector.size(), model.size());
        for (unsigned int i = 0; i < vector.size(); ++i)
            ASSERT_EQ(vector.at(i), model[i]);
        ASSERT_TRUE(cNumbers(vector) == vector);
    }
}

TEST(tVectorTest, elementsKeepTheirAddressAndMayBeArguments)
{
    cNumbers vector = numbers({1, 2, 3});
    int& two = vector[1];
    for (int i = 0; i < 30; ++i)
        vector.push_front(vector[0]);
    vector.insertRemoveLast(0, vector[vector.size() - 1]);
    EXPECT_EQ(&two, &vector[vector.size() - 1]);
    EXPECT_EQ(vector[0], 3);
    vector = numbers({1, 2});
    vector.append(vector);
    auto& self = vector;
    vector = self;
    EXPECT_EQ(text(vector), "1 2 1 2 ");
    EXPECT_TRUE(vector != numbers({1, 2, 1, 3}) && vector != numbers({1, 2, 1}));
}

struct cNotified : cNumbers {
    ~cNotified() override { destroyArray(true); }
    void notifyElementRemoved(int& element) override
    {
        mLog += std::to_string(element) + '/' + std::to_string(size()) + ' ';
        if (element == mRefill)
            append(100);
    }
    std::string mLog;
    int mRefill = -1;
};

TEST(tVectorTest, removalsAreTold)
{
    cNotified vector;
    vector.append(numbers({1, 2, 3, 4, 5}));
    vector.remove(1);
    vector.remove(0, cNumbers::rnSuppress);
    vector.insertRemoveLast(0, 9);
    vector.resize(2);
    EXPECT_EQ(vector.mLog, "2/4 ");
    vector.mRefill = 9;
    vector.clear();
    EXPECT_EQ(vector.mLog, "2/4 9/0 3/1 ");
    EXPECT_EQ(text(vector), "100 "); // what a notification adds stays
}

TEST(tVectorTest, theCountCanBeSetWithinThePool)
{
    cNumbers vector = numbers({1, 2, 3});
    vector.setNumElements(1);
    EXPECT_EQ(text(vector), "1 ");
    vector.getVector()[1] = new int(7);
    vector.setNumElements(2);
    EXPECT_EQ(text(vector), "1 7 ");
    vector.setNumElements(4); // two null cells
    EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfBoundsException>([&] { vector.setNumElements(11); }).has_value());
    cNumbers const copy(vector);
    EXPECT_EQ(copy.size(), 4u);
    vector.remove(3);
    vector.clear();
}

TEST(tVectorTest, iteratorsStandBeforeOnAndBehindTheElements)
{
    cNumbers vector = numbers({1, 2});
    auto it = vector.start();
    EXPECT_TRUE(it != vector.begin());
    EXPECT_TRUE(++it == vector.begin());
    *it++ = 5;
    EXPECT_EQ(*it, 2);
    EXPECT_TRUE(++it == vector.end());
    cNumbers::const_iterator const end = it;
    EXPECT_TRUE(end == vector.end());
    EXPECT_EQ(*--it, 2);
    EXPECT_EQ(text(vector), "5 2 ");

    struct {
        char const* name;
        void (*call)(cNumbers&);
        char const* operation;
    } const kRows[] = {
        {"step behind the end", [](cNumbers& v) { ++v.end(); }, "cIteratorBase::operator++()"},
        {"step before the start", [](cNumbers& v) { --v.start(); }, "cIteratorBase::operator--()"},
        {"read the start", [](cNumbers& v) { static_cast<void>(*v.start()); }, "tIterator::operator*()"},
        {"read the end", [](cNumbers& v) { static_cast<void>(*v.end()); }, "tIterator::operator*()"},
        {"mark", [](cNumbers& v) { v.begin().eraseLater(); }, "iterator::eraseLater()"},
    };
    for (auto const& row : kRows) {
        SCOPED_TRACE(row.name);
        auto const error = ntest::raisedBy<nstd::cOutOfBoundsException>([&] { row.call(vector); });
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(ntest::text(error->container()), "tList");
        EXPECT_EQ(ntest::text(error->operation()), row.operation);
    }
}

using cCounted = ntest::tCountedCopy<struct cVectorTag>;

TEST(tVectorTest, aFailedCopyChangesNothing)
{
    using cVector = nstd::tVector<cCounted>;
    void (*const kCalls[])(cVector&, cVector const&) = {
        [](cVector& v, cVector const& other) { v.append(other[0]); },
        [](cVector& v, cVector const& other) { v.insertRemoveLast(1, other[0]); },
        [](cVector& v, cVector const& other) { v.insert(1, other); },
        [](cVector& v, cVector const& other) { v = other; },
        [](cVector& v, cVector const&) { v.resize(20); },
    };
    for (auto const call : kCalls) {
        cVector vector, other;
        for (int i = 0; i < 10; ++i)
            vector.append(cCounted(i));
        other.append(vector[1]);
        other.append(vector[2]);
        cVector const before(vector);
        bool done = false;
        for (int copies = 0; !done; ++copies) {
            cCounted::copiesLeft = copies;
            int const living = cCounted::living;
            try {
                call(vector, other);
                done = true;
                EXPECT_GT(copies, 0);
            } catch (cCounted::cRefused const&) {
                EXPECT_TRUE(vector == before);
                EXPECT_EQ(vector.poolSize(), 10u);
                EXPECT_EQ(cCounted::living, living);
            }
        }
        cCounted::copiesLeft = -1;
        EXPECT_FALSE(vector == before);
    }
    EXPECT_EQ(cCounted::living, 0);
}

// Empties the vector that is destroying it.
struct cEmptying {
    ~cEmptying()
    {
        while (mpHome && !mpHome->empty())
            mpHome->remove(0);
    }
    nstd::tVector<cEmptying>* mpHome = nullptr;
};

TEST(tVectorTest, anElementMayEmptyItsVectorWhenItEnds)
{
    nstd::tVector<cEmptying> vector;
    for (int i = 0; i < 3; ++i)
        vector.append(cEmptying()).mpHome = &vector;
    vector.remove(1);
    EXPECT_TRUE(vector.empty());
    for (int i = 0; i < 3; ++i)
        vector.append(cEmptying()).mpHome = &vector; // and now the end of the vector itself
}

} // namespace
