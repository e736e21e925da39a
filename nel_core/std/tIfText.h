#pragma once

#include <cstddef>
#include <type_traits>

namespace nstd {

/// Enables an overload for zero-terminated text `P`, which only arrays and views of `char` have.
template<typename T, typename P>
using tIfText = std::enable_if_t<
    std::is_same_v<
        T,
        char> && (std::is_same_v<P, char const*> || std::is_same_v<P, char*> || std::is_same_v<P, std::nullptr_t>),
    int>;

} // namespace nstd
