#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "fuzz/memoryBound.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/tArray.h"

/// The bytes of one run, ready to be read.
struct cFuzzInput {
    cFuzzInput(std::uint8_t const* data, std::size_t size)
        : bytes(reinterpret_cast<char const*>(data), static_cast<unsigned int>(size)),
          stream(bytes)
    {
    }

    nsa::cDeserializeBinary::tBytes bytes;
    nsa::cDeserializeBinary stream;
};

/// Compares the bytes alone: an array that is empty equals one that has never held anything.
inline bool isSame(nsa::cDeserializeBinary::tBytes const& left, nsa::cDeserializeBinary::tBytes const& right)
{
    return left.length() == right.length() && (left.empty() || left == right);
}

/// Stops the process: a promise of the library does not hold.
#define FUZZ_CHECK(condition)                                                                                \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition);                             \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (false)
