#include "nel_core/std/tHash.h"

#include <gtest/gtest.h>
#include <vector>

#include "nel_core/ucs/cString.h"

namespace {

using cTraits = nstd::tArrayHashTraits<1024>;
using cTable = nstd::tHash<nucs::cString, int>;

// Element i of the key is `first` + i * `step`.
nucs::cString key(unsigned int length, unsigned int first, unsigned int step)
{
    std::vector<unsigned int> codePoints;
    for (unsigned int i = 0; i < length; ++i)
        codePoints.push_back(first + i * step);
    nucs::cString result;
    result.append(codePoints.data(), length);
    return result;
}

TEST(tHashTest, theBucketComesFromAllElementsOrFromFourSamples)
{
    // Worked out with arbitrary precision from the two rules.
    EXPECT_EQ(cTraits::bucket(nucs::cString()), 261u);
    EXPECT_EQ(cTraits::bucket(key(2, 0x10FFFF, 0xFFFFFFFF)), 546u);
    EXPECT_EQ(cTraits::bucket(key(1024, 1000, 7)), 773u);
    EXPECT_EQ(cTraits::bucket(key(1025, 1000, 7)), 574u);
    EXPECT_EQ(cTraits::bucket(key(70000, 1000, 7)), 730u);
}

TEST(tHashTest, keysOfOneBucketAreToldApart)
{
    cTable table;
    for (unsigned int i = 0; i < 3; ++i)
        table[key(1, 70 + 1024 * i, 0)] = static_cast<int>(i);
    EXPECT_EQ(table.bucket(cTraits::bucket(key(1, 70, 0))).size(), 3u);
    EXPECT_EQ(table.tryFind(key(1, 70 + 1024 * 3, 0)), nullptr);
    EXPECT_EQ(table.size(), 3u);
    cTable const copy(table);
    table.clear();
    EXPECT_TRUE(table.empty());
    for (unsigned int i = 0; i < 3; ++i)
        EXPECT_EQ(*copy.tryFind(key(1, 70 + 1024 * i, 0)), static_cast<int>(i));
}

// Adds a key to its table when it ends.
struct cAdding {
    ~cAdding()
    {
        if (mpTable)
            (*mpTable)[nucs::cString("b")];
    }
    nstd::tHash<nucs::cString, cAdding>* mpTable = nullptr;
};

TEST(tHashTest, whatAValueAddsWhenItIsClearedIsCounted)
{
    nstd::tHash<nucs::cString, cAdding> table;
    for (char const* name : {"a", "c"}) // in the buckets before and behind that of "b"
        table[nucs::cString(name)].mpTable = &table;
    table.clear();
    EXPECT_EQ(table.size(), 1u);
    EXPECT_NE(table.tryFind(nucs::cString("b")), nullptr);
}

TEST(tHashTest, aWalkVisitsEveryPairOnce)
{
    cTable table;
    for (unsigned int i = 0; i < 2500; ++i)
        table[key(1 + i % 3, i, 1)] += 1;
    int sum = 0;
    for (auto const& pair : table) {
        EXPECT_EQ(table.tryFind(pair.first), &pair.second);
        sum += pair.second;
    }
    EXPECT_EQ(sum, 2500);
}

} // namespace
