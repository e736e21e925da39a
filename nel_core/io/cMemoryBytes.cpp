#include "nel_core/io/cMemoryBytes.h"

#include <algorithm>
#include <cstring>

namespace nio {
namespace {

constexpr unsigned int kBlockSize = 1u << 16;
constexpr unsigned int kBlockGrowStep = 10; // blocks of small files stay small

// Calls `handle` with the index of each block of a range, the place in it, and the number of bytes there.
template<typename Handle>
void forEachBlock(unsigned int start, unsigned int count, Handle&& handle)
{
    while (count > 0) {
        auto const place = start % kBlockSize;
        auto const part = std::min(count, kBlockSize - place);
        handle(start / kBlockSize, place, part);
        start += part;
        count -= part;
    }
}

} // namespace

cMemoryBytes::~cMemoryBytes()
{
    freeBlocks(0);
}

void cMemoryBytes::read(unsigned int start, char* target, unsigned int count) const
{
    forEachBlock(start, count, [&](unsigned int index, unsigned int place, unsigned int part) {
        auto const* const block = index < maBlocks.length() ? maBlocks[index] : nullptr;
        auto const length = block ? block->length() : 0;
        auto const held = length > place ? std::min(part, length - place) : 0;
        if (held > 0)
            std::memcpy(target, block->data() + place, held);
        std::memset(target + held, 0, part - held);
        target += part;
    });
}

void cMemoryBytes::write(unsigned int start, char const* source, unsigned int count)
{
    provide(start, count);
    forEachBlock(start, count, [&](unsigned int index, unsigned int place, unsigned int part) {
        std::memcpy(maBlocks[index]->data() + place, source, part);
        source += part;
    });
    miSize = std::max(miSize, count == 0 ? 0 : start + count);
}

void cMemoryBytes::truncate(unsigned int size) noexcept
{
    if (size < miSize) {
        auto const whole = size / kBlockSize;
        auto const rest = size % kBlockSize;
        freeBlocks(rest == 0 ? whole : whole + 1);
        if (rest != 0 && whole < maBlocks.length() && maBlocks[whole] && maBlocks[whole]->length() > rest)
            maBlocks[whole]->truncate(rest);
    }
    miSize = size;
}

// Gives every block of the range the memory that it needs. What is left when that fails are zeros where there
// were none: the bytes are the same.
void cMemoryBytes::provide(unsigned int start, unsigned int count)
{
    if (count == 0)
        return;
    auto const needed = (start + (count - 1)) / kBlockSize + 1;
    if (needed > maBlocks.length())
        maBlocks.appendElements(needed - maBlocks.length(), nullptr);
    forEachBlock(start, count, [&](unsigned int index, unsigned int place, unsigned int part) {
        provideBlock(index, place + part);
    });
}

void cMemoryBytes::provideBlock(unsigned int index, unsigned int length)
{
    if (!maBlocks[index]) {
        maBlocks[index] = new tBlock;
        maBlocks[index]->setGrowStep(kBlockGrowStep);
    }
    auto& block = *maBlocks[index];
    if (length > block.length())
        block.appendElements(length - block.length(), 0);
}

void cMemoryBytes::freeBlocks(unsigned int from) noexcept
{
    if (from >= maBlocks.length())
        return;
    for (unsigned int i = from; i < maBlocks.length(); ++i)
        delete maBlocks[i];
    maBlocks.truncate(from);
}

} // namespace nio
