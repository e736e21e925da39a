#include "nel_core/std/cConstCStringRef.h"

#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/tConstArrayRef.h"
#include "tests/support/raisedBy.h"

namespace {

using nstd::cConstCStringRef;

TEST(cConstCStringRefTest, refersToTheCharactersInPlace)
{
    char const text[] = "abcdef";
    cConstCStringRef const ref(text, 5);
    EXPECT_EQ(ref.proxyLength(), 5u);
    EXPECT_EQ(&ref[4], text + 4);
    EXPECT_EQ(&ref.proxyAt(0), text);
    EXPECT_EQ(ref.proxyProvideData(5, 0), text + 5);
    EXPECT_EQ(ref.proxyPreferredBlockSize(), 0u);
    unsigned int offset = 7;
    EXPECT_EQ(&ref.constProxyPhysical(offset), &ref);
    EXPECT_EQ(offset, 0u);
    EXPECT_TRUE(nstd::tConstArrayRef<char>(ref, 1, 3) == "bcd");
    EXPECT_EQ(std::string_view(ref), "abcde");
    EXPECT_EQ(cConstCStringRef(text).length(), 6u);
    EXPECT_EQ(cConstCStringRef(std::string_view("a\0b", 3)).length(), 3u);
}

TEST(cConstCStringRefTest, assertsAtBadPointersAndIndices)
{
    struct {
        char const* expression;
        void (*call)();
    } const rows[] = {
        {"mpCStyleStringRef != 0", [] { cConstCStringRef ref(static_cast<char const*>(nullptr)); }},
        {"mpCStyleStringRef != 0", [] { cConstCStringRef ref(nullptr, 1); }},
        {"i < miLength", [] { cConstCStringRef("abc")[3]; }},
        {"i < miLength", [] { cConstCStringRef("abc").proxyAt(3); }},
    };
    for (auto const& row : rows) {
        auto const error = ntest::raisedBy<nstd::cBugException>(row.call);
        ASSERT_TRUE(error.has_value());
        auto const message = ntest::messageOf(*error);
        EXPECT_NE(message.find(row.expression), std::string::npos) << message;
        EXPECT_NE(message.find("nel_core/std/cConstCStringRef"), std::string::npos) << message;
    }
}

TEST(cConstCStringRefTest, checksRangesBeforeItGivesOrCopies)
{
    cConstCStringRef const ref("abc");
    char target[4] = "xyz";
    auto const copied =
        ntest::raisedBy<nstd::cOutOfRangeException>([&] { ref.proxyCopyPartTo(target, 1, 3); });
    ASSERT_TRUE(copied.has_value());
    EXPECT_EQ(copied->container(), "cConstCStringRef");
    EXPECT_EQ(copied->operation(), "copyPartTo");
    EXPECT_EQ(copied->rangeType(), cSTDExceptions::ortSize);
    EXPECT_STREQ(target, "xyz");
    ref.proxyCopyPartTo(target, 1, 2);
    EXPECT_STREQ(target, "bcz");

    auto const given = ntest::raisedBy<nstd::cOutOfRangeException>([&] { ref.proxyProvideData(4, 0); });
    ASSERT_TRUE(given.has_value());
    EXPECT_EQ(given->operation(), "provideData");
    EXPECT_EQ(given->rangeType(), cSTDExceptions::ortIndex);
    EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfBoundsException>([&] { ref.proxyProvideData(2, 0xFFFFFFFFu); }));
}

} // namespace
