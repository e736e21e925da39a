#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

#include "nel_core/std/fwd.h"
#include "nel_core/std/tBounds.h"

namespace nstd {

/// The memory of an array: a pool from malloc(), the number of elements in use and the rules of growth.
///
/// The pool grows linearly, to a multiple of 2^growStep() elements, with realloc(), which extends in place or
/// moves pages. Only asking for more elements than there is room for can fail: std::bad_alloc, and nothing
/// has changed. Fitting the pool to fewer never fails; at worst the pool stays as it is.
template<typename T, typename Traits>
class tArrayPool {
public:
    /// The number of elements.
    unsigned int length() const { return miLength; }
    unsigned int size() const { return miLength; }
    bool empty() const { return miLength == 0; }
    /// The number of elements for which the pool has room.
    unsigned int _poolSize() const { return miPoolSize; }
    /// The exponent of the pool's growth: its low five bits count.
    unsigned int growStep() const { return miGrowStep; }
    void setGrowStep(unsigned int step) { miGrowStep = step; }
    /// Whether operations that shrink the array fit the pool to the new length.
    bool fitOnErase() const { return mbFitOnErase; }
    void setFitOnErase(bool fit) { mbFitOnErase = fit; }
    /// Fits the pool to the length.
    void optimizeMemory() { resizePool(miLength, true); }
    /// Frees the pool and nothing else: length and pool size stay, so that only data(true), assignment, swap
    /// and the end of the array are sound afterwards. To empty an array use clear().
    void destroy()
    {
        std::free(mpPool);
        mpPool = nullptr;
    }

protected:
    /// How a derived class wants its pool to behave.
    struct cSettings {
        unsigned int growStep = 5;
        bool fitOnErase = true;
    };

    /// No pool yet, also where the traits want one: resizePool() makes it.
    explicit tArrayPool(cSettings settings) : miGrowStep(settings.growStep), mbFitOnErase(settings.fitOnErase)
    {
    }
    tArrayPool(tArrayPool const&) = delete;
    tArrayPool& operator=(tArrayPool const&) = delete;
    ~tArrayPool() { std::free(mpPool); }

    cSettings settings() const { return {miGrowStep, mbFitOnErase}; }
    /// Exchanges pool, length and settings.
    void swapPool(tArrayPool& other) noexcept;
    /// Makes the pool fit for `count` elements, exactly or rounded to the grow step, and keeps the elements.
    /// The only place that takes memory.
    void resizePool(unsigned int count, bool exact);
    /// As resizePool(), rounded, when `count` elements do not fit into the pool.
    void reserve(unsigned int count)
    {
        if (count > miPoolSize)
            resizePool(count, false);
    }
    /// `count`, at least 1, rounded up to a multiple of the grow step.
    unsigned long long sizeToSectors(unsigned int count) const;
    /// Sets a length for which the pool has room, and the terminator.
    void setLength(unsigned int count)
    {
        miLength = count;
        if constexpr (Traits::kTerminated)
            mpPool[count] = T();
    }
    /// As resizePool() for a length that may have shrunk: exactly when fit-on-erase is set.
    void resizeToFit(unsigned int count) { resizePool(count, mbFitOnErase); }
    /// Makes room for `count` elements at `position`, which is not beyond the length. When the new length
    /// does not fit raises out-of-bounds with the container word "tArray".
    void openGap(unsigned int position, unsigned int count, char const* operation);
    /// Opens a gap and fills it with the elements at `source`, which may be our own.
    void place(unsigned int position, T const* source, unsigned int count, char const* operation);
    /// Whether `source` points at one of our elements.
    bool isInside(T const* source) const;

    T* mpPool = nullptr; ///< owned; null until the first allocation
    unsigned int miPoolSize = 0;
    unsigned int miGrowStep;
    unsigned int miLength = 0; ///< never above the pool size
    bool mbFitOnErase;

private:
    /// False when there is no memory; the pool is as before then.
    bool reallocate(unsigned long long poolSize);
};

template<typename T, typename Traits>
void tArrayPool<T, Traits>::swapPool(tArrayPool& other) noexcept
{
    auto const exchange = [](auto& left, auto& right) {
        auto const kept = left;
        left = right;
        right = kept;
    };
    exchange(mpPool, other.mpPool);
    exchange(miPoolSize, other.miPoolSize);
    exchange(miGrowStep, other.miGrowStep);
    exchange(miLength, other.miLength);
    exchange(mbFitOnErase, other.mbFitOnErase);
}

template<typename T, typename Traits>
void tArrayPool<T, Traits>::resizePool(unsigned int count, bool exact)
{
    if constexpr (!Traits::kTerminated) {
        if (count == 0) {
            if (exact && miPoolSize > 0) {
                destroy();
                miPoolSize = 0;
            }
            return;
        }
    }
    unsigned long long const target = exact ? (count == 0 ? 1 : count) : sizeToSectors(count);
    if ((target > miPoolSize || (exact && target != miPoolSize)) && !reallocate(target)
        && (mpPool == nullptr || count > miPoolSize))
        throw std::bad_alloc();
    if constexpr (Traits::kTerminated)
        mpPool[count] = T();
}

template<typename T, typename Traits>
unsigned long long tArrayPool<T, Traits>::sizeToSectors(unsigned int count) const
{
    unsigned long long const sector = 1ULL << (miGrowStep & 31u);
    return ((count == 0 ? 1 : count) + sector - 1) & ~(sector - 1);
}

template<typename T, typename Traits>
bool tArrayPool<T, Traits>::isInside(T const* source) const
{
    auto const address = reinterpret_cast<std::uintptr_t>(source);
    auto const pool = reinterpret_cast<std::uintptr_t>(mpPool);
    return address >= pool && address - pool < static_cast<std::uintptr_t>(miLength) * sizeof(T);
}

template<typename T, typename Traits>
bool tArrayPool<T, Traits>::reallocate(unsigned long long poolSize)
{
    static_assert(alignof(T) <= alignof(std::max_align_t), "the pool has the alignment of malloc()");
    unsigned long long const bytes = (poolSize + (Traits::kTerminated ? 1 : 0)) * sizeof(T);
    bool const fits = poolSize <= 0xFFFFFFFFULL && bytes <= static_cast<unsigned long long>(PTRDIFF_MAX);
    void* const pool = fits ? std::realloc(mpPool, static_cast<std::size_t>(bytes)) : nullptr;
    if (pool == nullptr)
        return false;
    mpPool = static_cast<T*>(pool);
    miPoolSize = static_cast<unsigned int>(poolSize);
    return true;
}

template<typename T, typename Traits>
void tArrayPool<T, Traits>::openGap(unsigned int position, unsigned int count, char const* operation)
{
    if (count == 0)
        return;
    unsigned int const newLength = tBounds::sum(miLength, count, "tArray", operation);
    reserve(newLength);
    Traits::move(mpPool + position + count, mpPool + position, miLength - position);
    setLength(newLength);
}

template<typename T, typename Traits>
void tArrayPool<T, Traits>::place(unsigned int position, T const* source, unsigned int count,
                                  char const* operation)
{
    if (!isInside(source)) {
        openGap(position, count, operation);
        Traits::copy(mpPool + position, source, count);
        return;
    }
    // Our own elements: the pool may move, and what stands from the position on moves up by the gap.
    unsigned int const from = static_cast<unsigned int>(source - mpPool);
    unsigned int const inFront = from >= position ? 0 : (position - from < count ? position - from : count);
    openGap(position, count, operation);
    Traits::copy(mpPool + position, mpPool + from, inFront);
    Traits::copy(mpPool + position + inFront, mpPool + from + inFront + count, count - inFront);
}

} // namespace nstd
