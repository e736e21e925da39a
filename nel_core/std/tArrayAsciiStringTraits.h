#pragma once

#include "nel_core/std/tArrayByteLevelTraits.h"

namespace nstd {

/// Handles elements as plain bytes and keeps a zero element after the last one in use: the pool always has
/// room for it beyond its size, and even an empty array has a pool.
template<typename T>
struct tArrayAsciiStringTraits : tArrayByteLevelTraits<T> {
    static constexpr bool kTerminated = true;
};

} // namespace nstd
