#pragma once

#include <cstdlib>
#include <new>

/// Counts what the program asks of operator new, which it replaces: for a program of one source file.
static unsigned long long gAllocations = 0;

// Not inline: the compiler would complain of malloc() beside operator delete.
[[gnu::noinline]] void* operator new(std::size_t size)
{
    ++gAllocations;
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept
{
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
