#include "nel_core/std/cConstCStringRef.h"

#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/tConstArrayRef.h"
#include "tests/support/expectRefusal.h"

namespace {

using nstd::cConstCStringRef;

TEST(cConstCStringRefTest, refersToTheCharactersInPlace)
{
    char const text[] = "abcdef";
    cConstCStringRef const ref(text, 5);
    EXPECT_EQ(&ref[4], text + 4);
    EXPECT_EQ(ref.proxyProvideData(5, 0), text + 5);
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
        {"i < miLength", [] { cConstCStringRef("abc").proxyAt(3); }},
    };
    for (auto const& row : rows)
        ntest::expectAssertion(row.call, row.expression, "nel_core/std/cConstCStringRef");
}

TEST(cConstCStringRefTest, checksRangesBeforeItGivesOrCopies)
{
    cConstCStringRef const ref("abc");
    char target[4] = "xyz";
    ntest::expectRefusal([&] { ref.proxyCopyPartTo(target, 1, 3); },
                         {"cConstCStringRef", "copyPartTo", cSTDExceptions::ortSize, 3, 2});
    EXPECT_STREQ(target, "xyz");
    ref.proxyCopyPartTo(target, 1, 2);
    EXPECT_STREQ(target, "bcz");
    ntest::expectRefusal([&] { ref.proxyProvideData(4, 0); },
                         {"cConstCStringRef", "provideData", cSTDExceptions::ortIndex, 4, 2});
    ntest::expectRefusal([&] { ref.proxyProvideData(2, 0xFFFFFFFFu); },
                         {"cConstCStringRef", "provideData", ntest::kOutOfBounds});
}

} // namespace
