#include "nel_core/std/tStack.h"

#include <gtest/gtest.h>

#include "nel_core/std/cBugException.h"
#include "tests/support/raisedBy.h"

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
    int sum = 0;
    for (int value : stack)
        sum += value;
    EXPECT_EQ(sum, 65);
}

TEST(tStackTest, anEmptyStackHasNoTop)
{
    nstd::tStack<int> stack;
    stack.push(1);
    stack.pop();
    EXPECT_TRUE(stack.empty());
    for (bool const popped : {true, false}) {
        auto const error = ntest::raisedBy<nstd::cBugException>([&] { popped ? stack.pop() : stack.top(); });
        ASSERT_TRUE(error.has_value());
        std::string const message = ntest::messageOf(*error);
        EXPECT_NE(message.find("nel_core/std/tStack:"), std::string::npos) << message;
        EXPECT_NE(message.find("(miTopIdx)"), std::string::npos) << message;
    }
}

} // namespace
