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

std::string assertionOf(void (*call)())
{
    auto const error = ntest::raisedBy<nstd::cBugException>(call);
    return error.has_value() ? ntest::messageOf(*error) : std::string();
}

TEST(cConstCStringRefTest, refersToTheCharactersInPlace)
{
    char const text[] = "abc";
    cConstCStringRef const ref(text);
    EXPECT_EQ(ref.length(), 3u);
    EXPECT_EQ(ref.proxyLength(), 3u);
    EXPECT_EQ(&ref[2], text + 2);
    EXPECT_EQ(&ref.proxyAt(0), text);
    EXPECT_EQ(ref.proxyProvideData(1, 2), text + 1);
    EXPECT_EQ(ref.proxyProvideData(3, 0), text + 3);
    EXPECT_EQ(ref.proxyPreferredBlockSize(), 0u);
    unsigned int offset = 7;
    EXPECT_EQ(&ref.constProxyPhysical(offset), &ref);
    EXPECT_EQ(offset, 0u);
    EXPECT_EQ(std::string_view(ref), "abc");
    EXPECT_EQ(cConstCStringRef(std::string_view("a\0b", 3)).length(), 3u);
}

TEST(cConstCStringRefTest, takesPartInViews)
{
    cConstCStringRef const ref("abcdef", 5);
    nstd::tConstArrayRef<char> const view(ref, 1, 3);
    EXPECT_TRUE(view == "bcd");
    bool found = false;
    EXPECT_EQ(view.find("d", 1, found), 2u);
    EXPECT_TRUE(found);
}

TEST(cConstCStringRefTest, assertsAtBadPointersAndIndices)
{
    EXPECT_NE(assertionOf([] {
                  cConstCStringRef ref(static_cast<char const*>(nullptr));
              }).find("mpCStyleStringRef != 0"),
              std::string::npos);
    EXPECT_NE(assertionOf([] { cConstCStringRef ref(nullptr, 1); }).find("mpCStyleStringRef != 0"),
              std::string::npos);
    for (auto* call : {+[] { cConstCStringRef("abc")[3]; }, +[] { cConstCStringRef("abc").proxyAt(3); }}) {
        auto const message = assertionOf(call);
        EXPECT_NE(message.find("i < miLength"), std::string::npos) << message;
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
    EXPECT_EQ(copied->max(), 2);
    EXPECT_STREQ(target, "xyz");

    auto const given = ntest::raisedBy<nstd::cOutOfRangeException>([&] { ref.proxyProvideData(4, 0); });
    ASSERT_TRUE(given.has_value());
    EXPECT_EQ(given->operation(), "provideData");
    EXPECT_EQ(given->rangeType(), cSTDExceptions::ortIndex);
    EXPECT_TRUE(ntest::raisedBy<nstd::cOutOfBoundsException>([&] { ref.proxyProvideData(2, 0xFFFFFFFFu); }));

    ref.proxyCopyPartTo(target, 1, 2);
    EXPECT_STREQ(target, "bcz");
}

} // namespace
