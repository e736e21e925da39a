#pragma once

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "nel_core/std/fwd.h"

namespace nstd {

/// Handles array elements as plain bytes: moved by memory moves, never constructed or destroyed.
///
/// Counts and positions are elements; with a count of 0 the pointers may be null.
template<typename T>
struct tArrayByteLevelTraits {
    /// Whether the pool carries one zero element after the last one in use.
    static constexpr bool kTerminated = false;

    /// The bytes that one element takes.
    static constexpr unsigned int elementSize() { return static_cast<unsigned int>(sizeof(T)); }

    /// Copies between runs that do not overlap.
    static void copy(T* target, T const* source, unsigned int count)
    {
        if (count != 0)
            std::memcpy(static_cast<void*>(target), source, byteCount(count));
    }

    /// Copies between runs that may overlap.
    static void move(T* target, T const* source, unsigned int count)
    {
        if (count != 0)
            std::memmove(static_cast<void*>(target), source, byteCount(count));
    }

    /// Writes `value`, which may lie inside the target, to all `count` elements.
    static void fill(T* target, T const& value, unsigned int count)
    {
        T const element = value;
        for (unsigned int i = 0; i < count; ++i)
            target[i] = element;
    }

    /// The order of two runs of the same length by their unsigned bytes: negative, 0 or positive.
    static int compare(T const* left, T const* right, unsigned int count)
    {
        return count == 0 ? 0 : std::memcmp(left, right, byteCount(count));
    }

    /// The index of the first occurrence of the pattern that lies wholly inside the run; `count` when there
    /// is none. An empty pattern never occurs.
    static unsigned int find(T const* data, unsigned int count, T const* pattern, unsigned int patternLength);

private:
    static std::size_t byteCount(unsigned int count)
    {
        static_assert(std::is_trivially_copyable_v<T>, "the elements of an array are moved as bytes");
        return static_cast<std::size_t>(count) * sizeof(T);
    }
    static unsigned int findByte(T const* data, unsigned int count, T const* pattern,
                                 unsigned int patternLength);
    static unsigned int findWide(T const* data, unsigned int count, T const* pattern,
                                 unsigned int patternLength);
};

template<typename T>
unsigned int tArrayByteLevelTraits<T>::find(T const* data, unsigned int count, T const* pattern,
                                            unsigned int patternLength)
{
    if (patternLength == 0 || patternLength > count)
        return count;
    if constexpr (sizeof(T) == 1)
        return findByte(data, count, pattern, patternLength);
    else
        return findWide(data, count, pattern, patternLength);
}

template<typename T>
unsigned int tArrayByteLevelTraits<T>::findByte(T const* data, unsigned int count, T const* pattern,
                                                unsigned int patternLength)
{
    void const* const hit = patternLength == 1
                                ? std::memchr(data, *reinterpret_cast<unsigned char const*>(pattern), count)
                                : ::memmem(data, count, pattern, patternLength);
    return hit == nullptr ? count : static_cast<unsigned int>(static_cast<T const*>(hit) - data);
}

template<typename T>
unsigned int tArrayByteLevelTraits<T>::findWide(T const* data, unsigned int count, T const* pattern,
                                                unsigned int patternLength)
{
    unsigned int const last = count - patternLength;
    for (unsigned int i = 0; i <= last; ++i) {
        if (std::memcmp(data + i, pattern, sizeof(T)) == 0 && compare(data + i, pattern, patternLength) == 0)
            return i;
        if (i == last)
            break; // the greatest index there is must not be passed
    }
    return count;
}

} // namespace nstd
