#pragma once

#include "nel_core/std/fwd.h"

namespace nstd {

/// The replacement of every occurrence of a pattern in a run of elements, from left to right and without
/// searching again what has been put in. Pattern (not empty) and substitute lie outside of the run.
template<typename T, typename Traits>
struct tArrayReplace {
    T const* pattern;
    unsigned int patternLength;
    T const* with;
    unsigned int withLength;

    /// How often the pattern occurs in the `count` elements.
    unsigned int hits(T const* data, unsigned int count) const;
    /// Turns the `count` elements into the `newCount` that replacing gives; there is room for both.
    void run(T* data, unsigned int count, unsigned int newCount) const;
};

template<typename T, typename Traits>
unsigned int tArrayReplace<T, Traits>::hits(T const* data, unsigned int count) const
{
    unsigned int number = 0;
    unsigned int at = 0;
    while ((at += Traits::find(data + at, count - at, pattern, patternLength)) < count) {
        ++number;
        at += patternLength;
    }
    return number;
}

// A result that is longer is written from the front while the old elements are read from the end of the
// room, where they have been moved before: what is left to write always fits in front of what is left to
// read.
template<typename T, typename Traits>
void tArrayReplace<T, Traits>::run(T* data, unsigned int count, unsigned int newCount) const
{
    unsigned int const end = newCount > count ? newCount : count;
    unsigned int write = 0;
    unsigned int read = end - count;
    Traits::move(data + read, data, count);
    for (;;) {
        unsigned int const kept = Traits::find(data + read, end - read, pattern, patternLength);
        Traits::move(data + write, data + read, kept);
        write += kept;
        read += kept;
        if (read == end)
            return;
        Traits::copy(data + write, with, withLength);
        write += withLength;
        read += patternLength;
    }
}

} // namespace nstd
