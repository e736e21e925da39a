#include "nel_core/std/tVector.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "tests/support/expectRefusal.h"
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
    int type;
    long long value = 0, max = 0;
};

// On a vector of the three elements 1 2 3.
cFailingCall const kFailingCalls[] = {
    {"at", [](cNumbers& v) { v.at(3); }, "at", cSTDExceptions::ortIndex, 3, 2},
    {"insert", [](cNumbers& v) { v.insert(4, 9); }, "insert", cSTDExceptions::ortIndex, 4, 3},
    {"drop", [](cNumbers& v) { v.insertRemoveLast(3, 9); }, "insertSameSize", cSTDExceptions::ortIndex, 3, 2},
    {"remove", [](cNumbers& v) { v.remove(3); }, "remove", cSTDExceptions::ortValue, 3, 3},
    {"step behind the end", [](cNumbers& v) { ++v.end(); }, "cIteratorBase::operator++()",
     ntest::kOutOfBounds},
    {"step before the start", [](cNumbers& v) { --v.start(); }, "cIteratorBase::operator--()",
     ntest::kOutOfBounds},
    {"read the end", [](cNumbers& v) { *v.end() = 9; }, "tIterator::operator*()", ntest::kOutOfBounds},
    {"mark", [](cNumbers& v) { v.begin().eraseLater(); }, "iterator::eraseLater()", ntest::kOutOfBounds},
};

TEST(tVectorTest, aFailedCallNamesTheLimitAndChangesNothing)
{
    for (auto const& row : kFailingCalls) {
        SCOPED_TRACE(row.name);
        cNumbers vector = numbers({1, 2, 3});
        auto const* const container = row.type == ntest::kOutOfBounds ? "tList" : "tVector";
        ntest::expectRefusal([&] { row.call(vector); },
                             {container, row.operation, row.type, row.value, row.max});
        EXPECT_EQ(text(vector), "1 2 3 ");
    }
}

TEST(tVectorTest, thePoolGrowsInSteps)
{
    cNumbers vector;
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

    cNumbers const fresh;
    EXPECT_EQ(fresh.getRequiredPoolSize(0), 10u);
    EXPECT_EQ(fresh.getRequiredPoolSize(4294967290u), 4294967290u);
    ntest::expectAssertion([&] { fresh.getRequiredPoolSize(4294967291u); }, "iRequired >= iNewSize",
                           "nel_core/std/tVector");
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
    vector = *&vector;
    EXPECT_EQ(text(vector), "1 2 1 2 ");
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

using cCounted = ntest::tCountedCopy<struct cVectorTag>;

TEST(tVectorTest, aFailedCopyChangesNothing)
{
    using cVector = nstd::tVector<cCounted>;
    struct {
        void (*call)(cVector&, cVector const&);
        int copies;
    } const rows[] = {
        {[](cVector& v, cVector const& other) { v.append(other[0]); }, 1},
        {[](cVector& v, cVector const& other) { v.insertRemoveLast(1, other[0]); }, 1},
        {[](cVector& v, cVector const& other) { v.insert(1, other); }, 2},
        {[](cVector& v, cVector const& other) { v = other; }, 2},
        {[](cVector& v, cVector const&) { v.resize(20); }, 10},
    };
    cVector vector, other;
    for (int i = 0; i < 10; ++i)
        vector.append(cCounted(i));
    other.append(vector[1]);
    other.append(vector[2]);
    cVector const before(vector);
    int const living = cCounted::living;
    for (auto const& row : rows)
        for (int copies = 0; copies < row.copies; ++copies) {
            cCounted::copiesLeft = copies;
            EXPECT_THROW(row.call(vector, other), cCounted::cRefused);
            EXPECT_TRUE(vector == before);
            EXPECT_EQ(vector.poolSize(), 10u);
            EXPECT_EQ(cCounted::living, living);
        }
    cCounted::copiesLeft = -1;
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
