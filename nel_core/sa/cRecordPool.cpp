#include "nel_core/sa/cRecordPool.h"

#include <new>

namespace nsa {

cRecordPool::~cRecordPool()
{
    while (mpSpare) {
        auto* const block = mpSpare;
        mpSpare = block->mpNext;
        ::operator delete(block);
    }
}

void* cRecordPool::take(cRecordPool*& pool, std::size_t size)
{
    static_assert(sizeof(cBlock) % alignof(void*) == 0, "records hold pointers and numbers");
    if (!pool) {
        pool = new cRecordPool;
        pool->miLiving = 1;
    }
    cBlock* block = pool->mpSpare;
    if (block)
        pool->mpSpare = block->mpNext;
    else
        block = static_cast<cBlock*>(::operator new(sizeof(cBlock) + size));
    block->mpPool = pool;
    ++pool->miLiving;
    return block + 1;
}

void cRecordPool::give(void* record) noexcept
{
    auto* const block = static_cast<cBlock*>(record) - 1;
    auto* const pool = block->mpPool;
    block->mpNext = pool->mpSpare;
    pool->mpSpare = block;
    abandon(pool);
}

// The last one out, the stream or a record, takes the pool along.
void cRecordPool::abandon(cRecordPool* pool) noexcept
{
    if (pool && --pool->miLiving == 0)
        delete pool;
}

} // namespace nsa
