#pragma once

#include <cstddef>

/// While it lives, counts the memory that the process takes beyond what it had. Stops the process when that
/// has passed 16 times the size of the input plus 8 MiB, which is what the library promises for everything
/// that it reads.
class cMemoryBound {
public:
    explicit cMemoryBound(std::size_t inputSize);
    cMemoryBound(cMemoryBound const&) = delete;
    cMemoryBound& operator=(cMemoryBound const&) = delete;
    ~cMemoryBound();
};
