#pragma once

#include <cstring>

namespace nsa {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__,
              "stored numbers and code points are copied as they are");

/// Writes a number to unaligned bytes and gives the place behind it.
template<typename T>
char* putNumber(char* target, T value)
{
    std::memcpy(target, &value, sizeof(value));
    return target + sizeof(value);
}

/// Reads a number from unaligned bytes.
template<typename T>
T getNumber(char const* source)
{
    T value;
    std::memcpy(&value, source, sizeof(value));
    return value;
}

} // namespace nsa
