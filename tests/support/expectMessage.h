#pragma once

#include <string>

#include "tests/support/raisedBy.h"

namespace ntest {

/// Expects that `callable` raises an E with this message.
template<typename E, typename Callable>
void expectMessage(Callable&& callable, std::string const& message)
{
    if (auto const error = raisedBy<E>(callable)) {
        EXPECT_EQ(messageOf(*error), message);
    }
}

} // namespace ntest
