#include "fuzz/memoryBound.h"

#include <cstdio>
#include <cstdlib>

#include <sanitizer/allocator_interface.h>

namespace {

long long liveBytes = 0;
long long maxBytes = 0; // 0: not counted

void countMalloc(void const volatile* block, std::size_t)
{
    if (maxBytes == 0)
        return;
    liveBytes += static_cast<long long>(__sanitizer_get_allocated_size(const_cast<void const*>(block)));
    if (liveBytes <= maxBytes)
        return;
    std::fprintf(stderr, "the input has taken %lld bytes of memory; it may take %lld\n", liveBytes, maxBytes);
    std::abort();
}

void countFree(void const volatile* block)
{
    if (maxBytes != 0 && block)
        liveBytes -= static_cast<long long>(__sanitizer_get_allocated_size(const_cast<void const*>(block)));
}

bool const isCounting = __sanitizer_install_malloc_and_free_hooks(countMalloc, countFree) != 0;

} // namespace

cMemoryBound::cMemoryBound(std::size_t inputSize)
{
    if (!isCounting)
        std::abort();
    liveBytes = 0;
    maxBytes = 16 * static_cast<long long>(inputSize) + (8LL << 20);
}

cMemoryBound::~cMemoryBound()
{
    maxBytes = 0;
}
