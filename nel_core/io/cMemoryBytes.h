#pragma once

#include "nel_core/std/tArray.h"

namespace nio {

/// The bytes of a file in memory. Memory is taken in blocks of 64 KiB, and of these only for what has been
/// written; what lies between reads as zero. Internal to the memory file system.
class cMemoryBytes {
public:
    cMemoryBytes() = default;
    cMemoryBytes(cMemoryBytes const&) = delete;
    cMemoryBytes& operator=(cMemoryBytes const&) = delete;
    ~cMemoryBytes();

    unsigned int size() const noexcept { return miSize; }
    /// Copies the `count` bytes from `start` on, which must lie within the size.
    void read(unsigned int start, char* target, unsigned int count) const;
    /// Replaces or adds the bytes from `start` on; start + count fits into 32 bits. Without memory raises
    /// std::bad_alloc, and nothing has changed.
    void write(unsigned int start, char const* source, unsigned int count);
    /// Cuts or adds zeros. Takes no memory.
    void truncate(unsigned int size) noexcept;

private:
    using tBlock = nstd::tArray<char>;

    void provide(unsigned int start, unsigned int count);
    void provideBlock(unsigned int index, unsigned int length);
    void freeBlocks(unsigned int from) noexcept;

    nstd::tArray<tBlock*> maBlocks; ///< owned; null for a block of zeros
    unsigned int miSize = 0;        ///< blocks hold nothing behind it but zeros
};

} // namespace nio
