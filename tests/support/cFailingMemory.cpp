#include "tests/support/cFailingMemory.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define NTEST_SANITIZED 1
#else
#define NTEST_SANITIZED 0
#endif

#if NTEST_SANITIZED
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace {

struct cPlan {
    bool isArmed;
    bool isShortage;
    bool hasFailed;
    unsigned int left; ///< requests to come up to the one that fails, itself included
};

thread_local cPlan tPlan; // all zero: there is no code to run before its first use
[[maybe_unused]] std::atomic<long long> gBlocks{0};

// These run before a sanitizer is ready for checked code.
#define NTEST_UNCHECKED __attribute__((no_sanitize("address", "undefined")))
#define NTEST_HOOK extern "C" __attribute__((visibility("default"))) NTEST_UNCHECKED

// Counts a request and says whether it is one that fails.
[[maybe_unused]] NTEST_UNCHECKED bool fails() noexcept
{
    if (!tPlan.isArmed)
        return false;
    if (tPlan.hasFailed)
        return tPlan.isShortage;
    tPlan.hasFailed = --tPlan.left == 0;
    return tPlan.hasFailed;
}

} // namespace

#if defined(__SANITIZE_ADDRESS__)

// The sanitizer's operator new does not use malloc(): both stand before the sanitizer's, and pass on to it.

extern "C" {
void* __interceptor_malloc(std::size_t);
void* __interceptor_calloc(std::size_t, std::size_t);
void* __interceptor_realloc(void*, std::size_t);
}

NTEST_HOOK void* malloc(std::size_t size) noexcept
{
    return fails() ? nullptr : __interceptor_malloc(size);
}

NTEST_HOOK void* calloc(std::size_t count, std::size_t size) noexcept
{
    return fails() ? nullptr : __interceptor_calloc(count, size);
}

NTEST_HOOK void* realloc(void* block, std::size_t size) noexcept
{
    return fails() ? nullptr : __interceptor_realloc(block, size);
}

// The leak check knows the dynamic linker's blocks, which are never freed, by the caller of malloc(): that is
// the function above now, so they are named here.
NTEST_HOOK char const* __lsan_default_suppressions()
{
    return "leak:ld-linux\n";
}

NTEST_HOOK char const* __lsan_default_options()
{
    return "print_suppressions=0";
}

namespace {

using tNew = void* (*)(std::size_t);

// The operator that would have been called without the one of this file.
NTEST_UNCHECKED tNew nextNew(char const* symbol)
{
    return reinterpret_cast<tNew>(::dlsym(RTLD_NEXT, symbol));
}

} // namespace

__attribute__((visibility("default"))) NTEST_UNCHECKED void* operator new(std::size_t size)
{
    static tNew const next = nextNew(sizeof(void*) == 8 ? "_Znwm" : "_Znwj");
    if (fails())
        throw std::bad_alloc();
    return next(size);
}

__attribute__((visibility("default"))) NTEST_UNCHECKED void* operator new[](std::size_t size)
{
    static tNew const next = nextNew(sizeof(void*) == 8 ? "_Znam" : "_Znaj");
    if (fails())
        throw std::bad_alloc();
    return next(size);
}

#elif !defined(__SANITIZE_THREAD__)

// The standard library's operator new uses malloc(), so these see all requests. A request of 0 bytes that
// fails gives null as well.

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void __libc_free(void*);
}

namespace {

void* counted(void* block) noexcept
{
    if (block)
        gBlocks.fetch_add(1, std::memory_order_relaxed);
    return block;
}

} // namespace

NTEST_HOOK void* malloc(std::size_t size) noexcept
{
    return fails() ? nullptr : counted(__libc_malloc(size));
}

NTEST_HOOK void* calloc(std::size_t count, std::size_t size) noexcept
{
    return fails() ? nullptr : counted(__libc_calloc(count, size));
}

NTEST_HOOK void* realloc(void* block, std::size_t size) noexcept
{
    if (fails())
        return nullptr;
    if (!block)
        return counted(__libc_realloc(nullptr, size));
    if (size == 0)
        gBlocks.fetch_sub(1, std::memory_order_relaxed); // the C library frees the block
    return __libc_realloc(block, size);
}

NTEST_HOOK void free(void* block) noexcept
{
    if (block)
        gBlocks.fetch_sub(1, std::memory_order_relaxed);
    __libc_free(block);
}

#endif

namespace ntest {

bool cFailingMemory::isAvailable()
{
#if defined(__SANITIZE_THREAD__)
    return false;
#else
    return true;
#endif
}

cFailingMemory::cFailingMemory(unsigned int n, Mode mode)
{
    tPlan = cPlan{true, mode == moShortage, false, n};
}

cFailingMemory::~cFailingMemory()
{
    tPlan = cPlan{};
}

bool cFailingMemory::hasFailed() const
{
    return tPlan.hasFailed;
}

long long cFailingMemory::inUse()
{
#if NTEST_SANITIZED
    return static_cast<long long>(__sanitizer_get_current_allocated_bytes());
#else
    return gBlocks;
#endif
}

} // namespace ntest
