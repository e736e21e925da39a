#pragma once

#include "nel_core/std/fwd.h"

namespace nstd {

/// Two values side by side.
template<typename A, typename B>
struct tPair {
    /// Both values default-constructed; numbers and pointers are zero.
    tPair() : first(), second() { }
    tPair(A const& a, B const& b) : first(a), second(b) { }

    A first;
    B second;
};

} // namespace nstd
