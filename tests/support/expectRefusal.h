#pragma once

#include <string>

#include "nel_core/std/cBugException.h"
#include "nel_core/std/cOutOfBoundsException.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "tests/support/raisedBy.h"

namespace ntest {

/// Stands among the types of out-of-range for out-of-bounds, which has no value and no limit.
constexpr int kOutOfBounds = -1;

/// What a call outside of a range reports.
struct cRefusal {
    char const *container, *operation;
    int type; ///< of out-of-range, or kOutOfBounds
    long long value = 0, max = 0;
};

template<typename Callable>
void expectRefusal(Callable&& call, cRefusal const& expected)
{
    auto const expectWords = [&](auto const& error) {
        EXPECT_EQ(text(error.container()), expected.container);
        EXPECT_EQ(text(error.operation()), expected.operation);
    };
    if (expected.type == kOutOfBounds) {
        if (auto const error = raisedBy<nstd::cOutOfBoundsException>(call))
            expectWords(*error);
    } else if (auto const error = raisedBy<nstd::cOutOfRangeException>(call)) {
        expectWords(*error);
        EXPECT_EQ(static_cast<int>(error->rangeType()), expected.type);
        EXPECT_EQ(error->value(), expected.value);
        EXPECT_EQ(error->min(), 0);
        EXPECT_EQ(error->max(), expected.max);
    }
}

/// Expects that an assertion fails, with these words.
template<typename Callable>
void expectAssertion(Callable&& call, std::string const& expression, std::string const& source)
{
    if (auto const error = raisedBy<nstd::cBugException>(call)) {
        auto const message = messageOf(*error);
        EXPECT_NE(message.find(" " + source + ":"), std::string::npos) << message;
        EXPECT_NE(message.find("(" + expression + ")"), std::string::npos) << message;
    }
}

} // namespace ntest
