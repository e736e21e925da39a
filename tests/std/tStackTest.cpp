#include "nel_core/std/tStack.h"

#include <gtest/gtest.h>

#include "tests/support/expectRefusal.h"

namespace {

TEST(tStackTest, theLastComesFirst)
{
    nstd::tStack<int> stack;
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(stack.push(i), i);
    stack.top() = 50;
    EXPECT_EQ(stack.pop(), 50);
    EXPECT_EQ(stack.push(stack.top()), 10);
    EXPECT_EQ(stack.size(), 12u);
}

TEST(tStackTest, anEmptyStackHasNoTop)
{
    nstd::tStack<int> stack;
    stack.push(1);
    stack.pop();
    ntest::expectAssertion([&] { stack.pop(); }, "miTopIdx", "nel_core/std/tStack");
    ntest::expectAssertion([&] { stack.top(); }, "miTopIdx", "nel_core/std/tStack");
}

} // namespace
