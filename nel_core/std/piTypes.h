#pragma once

#include <cstdint>

/// The fundamental types of the framework. Sizes, lengths and indices are `unsigned int` (32 bits)
/// everywhere; plain `char` is text and nothing else.
typedef signed char piChar;
typedef unsigned char piUChar;
typedef short piInt16;
typedef unsigned short piUInt16;
typedef int piInt32;
typedef unsigned int piUInt32;
typedef long long piInt64;
typedef unsigned long long piUInt64;
typedef bool piBool;
typedef double piDouble;

/// A code address, wide enough for the target; exactly `unsigned int` on 32-bit x86.
typedef std::uintptr_t piAddress;

/// The absence of a value where a template wants a type: the return type of every signal and slot.
class piVoid {
public:
    constexpr bool operator==(piVoid const&) const { return true; }
    constexpr bool operator!=(piVoid const&) const { return false; }
};

static_assert(sizeof(short) == 2 && sizeof(int) == 4 && sizeof(long long) == 8, "the widths of the pi types");
static_assert(sizeof(wchar_t) == 4, "wide characters are 32-bit code points");
static_assert(sizeof(bool) == 1 && sizeof(double) == 8, "booleans are bytes, doubles are IEEE doubles");
