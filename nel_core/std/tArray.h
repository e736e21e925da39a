#pragma once

#include <cstring>

#include "nel_core/export.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/tAbstractArrayProxy.h"
#include "nel_core/std/tArrayAsciiStringTraits.h"
#include "nel_core/std/tArrayByteLevelTraits.h"
#include "nel_core/std/tArrayPool.h"
#include "nel_core/std/tArrayReplace.h"
#include "nel_core/std/tBounds.h"
#include "nel_core/std/tIfText.h"

namespace nstd {

/// The one contiguous element store: trivially copyable elements in a pool of its own, which grows as
/// tArrayPool says.
///
/// Copies copy the elements; there is no sharing. Arguments may lie inside the array itself. Every operation
/// checks before it changes anything and raises out-of-range or out-of-bounds with the container word
/// "tArray"; one that would pass 2^32 - 1 elements raises out-of-bounds; when memory runs out it throws
/// std::bad_alloc and the array is as before. Pointers into the pool are valid until the next operation that
/// changes the length. Not synchronised.
template<typename T, typename Traits>
class tArray : public tAbstractArrayProxy<T>, public tArrayPool<T, Traits> {
    typedef tArrayPool<T, Traits> tPool;

public:
    typedef T* iterator;
    typedef T const* const_iterator;

    /// An empty array.
    tArray();
    /// `count` undefined elements.
    explicit tArray(unsigned int count);
    /// The characters of a zero-terminated text, without its terminator; null asserts.
    template<typename P, tIfText<T, P> = 0>
    tArray(P pFrom);
    /// The `count` elements at `pFrom`; null asserts.
    tArray(T const* pFrom, unsigned int count);
    /// Copies the elements, grow step and fit-on-erase; the elements through the other's proxy interface.
    tArray(tArray const& other);
    /// Leaves the other one empty, with its settings.
    tArray(tArray&& other) noexcept(!Traits::kTerminated);
    ~tArray() override = default;
    tArray& operator=(tArray const& other);
    /// Leaves the other one what we had.
    tArray& operator=(tArray&& other) noexcept
    {
        swap(other);
        return *this;
    }
    /// Exchanges the elements and the settings.
    void swap(tArray& other) noexcept { tPool::swapPool(other); }

    /// The element at `i`, unchecked.
    T& operator[](unsigned int i) { return mpPool[i]; }
    T const& operator[](unsigned int i) const { return mpPool[i]; }
    /// The element at `i`; raises out-of-range ortIndex.
    T& at(unsigned int i)
    {
        tBounds::checkIndex(miLength, i, "tArray", "at");
        return mpPool[i];
    }
    T const& at(unsigned int i) const { return const_cast<tArray&>(*this).at(i); }
    /// The first element. Without a pool null when `allowNull`, otherwise an assertion.
    T* data(bool allowNull = false)
    {
        if (!allowNull)
            NEL_ASSERT(mpPool != 0);
        return mpPool;
    }
    T const* data(bool allowNull = false) const { return const_cast<tArray&>(*this).data(allowNull); }
    /// The element at `start`, once [start, start + count) has been checked.
    T* data(unsigned int start, unsigned int count, bool allowNull = false)
    {
        tBounds::startSize2End(miLength, start, count, "tArray", "data");
        return data(allowNull) + start;
    }
    T const* data(unsigned int start, unsigned int count, bool allowNull = false) const
    {
        return const_cast<tArray&>(*this).data(start, count, allowNull);
    }
    iterator begin() { return mpPool; }
    iterator end() { return mpPool + miLength; }
    const_iterator begin() const { return mpPool; }
    const_iterator end() const { return mpPool + miLength; }
    /// Writes `value` to every element, or to the `count` ones from `start` on.
    void fill(T const& value) { Traits::fill(mpPool, value, miLength); }
    void fill(unsigned int start, T const& value, unsigned int count)
    {
        tBounds::startSize2End(miLength, start, count, "tArray", "fill");
        Traits::fill(mpPool + start, value, count);
    }

    /// Adds one element, the `count` ones at `source`, or a text without its terminator. Gives the old
    /// length.
    unsigned int append(T const& element)
    {
        if (miLength >= miPoolSize)
            return appendGrowing(element);
        mpPool[miLength] = element;
        setLength(miLength + 1);
        return miLength - 1;
    }
    unsigned int append(T const* source, unsigned int count)
    {
        unsigned int const index = miLength;
        place(index, source, count, "append");
        return index;
    }
    template<typename P, tIfText<T, P> = 0>
    unsigned int append(P text);
    /// Adds `count` elements, undefined or copies of `value`. Gives the old length.
    unsigned int appendElements(unsigned int count)
    {
        unsigned int const index = miLength;
        openGap(index, count, "appendElements");
        return index;
    }
    unsigned int appendElements(unsigned int count, T const& value);
    /// Inserts in front of `position`; beyond the length raises out-of-range ortValue.
    void insert(unsigned int position, T const& element) { insert(position, &element, 1); }
    void insert(unsigned int position, T const* source, unsigned int count)
    {
        checkPosition(position);
        place(position, source, count, "insert");
    }
    template<typename P, tIfText<T, P> = 0>
    void insert(unsigned int position, P text);
    /// Removes the `count` elements from `start` on.
    void erase(unsigned int start, unsigned int count);
    /// Removes the last `count` elements; more than there are raises out-of-range ortSize.
    void erase(unsigned int count);
    /// Keeps the first `count` elements; more than there are raises out-of-range ortValue.
    void truncate(unsigned int count);
    /// Makes the length `count`; all elements are undefined afterwards.
    void setSize(unsigned int count)
    {
        resizeToFit(count);
        miLength = count;
    }
    /// Replaces the content by the `count` elements at `source`.
    void setData(T const* source, unsigned int count);
    /// Empties the array and releases the pool; an array that is empty already keeps it.
    void clear()
    {
        if (miLength == 0)
            return;
        miLength = 0;
        resizePool(0, true);
    }
    /// Replaces every element equal to `from`, from `start` on. Beyond the last element raises ortIndex,
    /// unless the array is empty.
    void replace(T const& from, T const& to, unsigned int start = 0);
    /// Replaces every occurrence of the pattern from `start` on, from left to right; what has been put in is
    /// not searched again. An empty pattern changes nothing; a null `with` stands for nothing.
    void replace(T const* pattern, unsigned int patternLength, T const* with, unsigned int withLength,
                 unsigned int start = 0);
    /// The same with texts, which must not be null unless the array is empty.
    template<typename P, typename Q, tIfText<T, P> = 0, tIfText<T, Q> = 0>
    void replace(P a, Q b, unsigned int start = 0);

    /// Searches the `count` elements (0 or too many: all) from `start` on for an occurrence that lies wholly
    /// inside them. Gives its index, or `start` with `found` false. An empty pattern is never found. Raises
    /// out-of-bounds when `start` is beyond the length or start + count wraps.
    unsigned int find(T const* pattern, unsigned int patternLength, bool& found, unsigned int start = 0,
                      unsigned int count = 0) const;
    unsigned int find(T const& element, bool& found, unsigned int start = 0, unsigned int count = 0) const
    {
        return find(&element, 1, found, start, count);
    }
    template<typename P, tIfText<T, P> = 0>
    unsigned int find(P text, bool& found, unsigned int start = 0, unsigned int count = 0) const;
    /// Whether the whole array has an occurrence.
    bool contains(T const* pattern, unsigned int patternLength) const
    {
        return Traits::find(mpPool, miLength, pattern, patternLength) < miLength;
    }
    bool contains(T const& element) const { return contains(&element, 1); }
    template<typename P, tIfText<T, P> = 0>
    bool contains(P text) const
    {
        bool found = false;
        find(text, found);
        return found;
    }
    /// An empty pattern begins every array, but ends none.
    bool beginsWith(T const* pattern, unsigned int patternLength) const
    {
        return patternLength <= miLength && Traits::compare(mpPool, pattern, patternLength) == 0;
    }
    bool endsWith(T const* pattern, unsigned int patternLength) const;
    /// Whether the `count` elements from `start` (or the first one) on equal those at `source`. False for a
    /// null source and when there are fewer.
    bool isEqual(T const* source, unsigned int start, unsigned int count) const;
    bool isEqual(T const* source, unsigned int count) const { return isEqual(source, 0, count); }
    /// -1, 0 or 1 by the unsigned bytes of the common prefix, then by length. No pool at all comes before
    /// every pool, even one of an empty array; a null `other` counts as no pool.
    int relation(tArray const& other) const { return relation(other.mpPool, other.miLength); }
    int relation(T const* other, unsigned int count) const;
    /// A text takes part with its terminator: only an array that holds the zero too equals it. Null asserts.
    bool operator==(tArray const& other) const { return relation(other) == 0; }
    bool operator!=(tArray const& other) const { return relation(other) != 0; }
    bool operator<(tArray const& other) const { return relation(other) < 0; }
    bool operator<=(tArray const& other) const { return relation(other) <= 0; }
    bool operator>(tArray const& other) const { return relation(other) > 0; }
    bool operator>=(tArray const& other) const { return relation(other) >= 0; }
    template<typename P, tIfText<T, P> = 0>
    bool operator==(P pWith) const
    {
        return textRelation(pWith) == 0;
    }
    template<typename P, tIfText<T, P> = 0>
    bool operator!=(P pWith) const
    {
        return textRelation(pWith) != 0;
    }
    template<typename P, tIfText<T, P> = 0>
    bool operator<(P pWith) const
    {
        return textRelation(pWith) < 0;
    }
    template<typename P, tIfText<T, P> = 0>
    bool operator<=(P pWith) const
    {
        return textRelation(pWith) <= 0;
    }
    template<typename P, tIfText<T, P> = 0>
    bool operator>(P pWith) const
    {
        return textRelation(pWith) > 0;
    }
    template<typename P, tIfText<T, P> = 0>
    bool operator>=(P pWith) const
    {
        return textRelation(pWith) >= 0;
    }
    /// A copy of the elements [start, end). Raises out-of-bounds when the range is reversed, out-of-range
    /// ortEndValue when it ends beyond the length, ortIndex when it does not start at an element.
    tArray cut(unsigned int start, unsigned int end) const
    {
        unsigned int const count = tBounds::startEnd2Size(miLength, start, end, "tArray", "cut");
        return tArray(mpPool + start, count);
    }
    /// The same into `out`, which is emptied first, also when the range is refused.
    template<typename Out>
    void cut(unsigned int start, unsigned int end, Out& out) const;

    T const& proxyAt(unsigned int i) const override { return at(i); }
    unsigned int proxyLength() const override { return miLength; }
    void proxyCopyPartTo(T* target, unsigned int start, unsigned int count) const override
    {
        tBounds::startSize2End(miLength, start, count, "tArray", "copyPartTo");
        Traits::copy(target, mpPool + start, count);
    }
    T const* proxyProvideData(unsigned int start, unsigned int count) const override;
    unsigned int proxyPreferredBlockSize() const override { return 0; }
    tAbstractConstArrayProxy<T> const& constProxyPhysical(unsigned int& offset) const override
    {
        offset = 0;
        return *this;
    }
    T& proxyAt(unsigned int i) override { return at(i); }
    T* proxyProvideWriteableData(unsigned int start, unsigned int count) override;
    void proxyPatchData(unsigned int start, unsigned int count, T const* source) override
    {
        tBounds::startSize2End(miLength, start, count, "tArray", "proxyPatchData");
        Traits::move(mpPool + start, source, count);
    }
    void proxySetSize(unsigned int count) override { setSize(count); }
    unsigned int proxyInsert(unsigned int position, T const* source, unsigned int count) override;
    unsigned int proxyInsertDefaultObjects(unsigned int position, unsigned int count) override
    {
        checkPosition(position);
        openGap(position, count, "insert");
        return count;
    }
    void proxyErase(unsigned int start, unsigned int count) override { erase(start, count); }
    tAbstractArrayProxy<T>& proxyPhysical(unsigned int& offset) override
    {
        offset = 0;
        return *this;
    }

protected:
    typedef typename tPool::cSettings cSettings;

    /// An empty array without a pool.
    explicit tArray(cSettings settings) : tPool(settings) { }

    using tPool::miLength;
    using tPool::miPoolSize;
    using tPool::mpPool;
    using tPool::openGap;
    using tPool::place;
    using tPool::reserve;
    using tPool::resizePool;
    using tPool::resizeToFit;
    using tPool::setLength;

private:
    unsigned int appendGrowing(T element);
    void checkPosition(unsigned int position) const;
    template<typename P>
    int textRelation(P pWith) const;
};

template<typename T, typename Traits>
tArray<T, Traits>::tArray() : tArray(cSettings())
{
    resizePool(0, false);
}

template<typename T, typename Traits>
tArray<T, Traits>::tArray(unsigned int count) : tArray(cSettings())
{
    resizePool(count, false);
    miLength = count;
}

template<typename T, typename Traits>
template<typename P, tIfText<T, P>>
tArray<T, Traits>::tArray(P pFrom) : tArray(cSettings())
{
    NEL_ASSERT(pFrom != 0);
    resizePool(0, false);
    append(pFrom);
}

template<typename T, typename Traits>
tArray<T, Traits>::tArray(T const* pFrom, unsigned int count) : tArray(cSettings())
{
    NEL_ASSERT(pFrom != 0);
    resizePool(count, false);
    Traits::copy(mpPool, pFrom, count);
    miLength = count;
}

template<typename T, typename Traits>
tArray<T, Traits>::tArray(tArray const& other) : tArray(other.settings())
{
    unsigned int const count = other.proxyLength();
    resizePool(count, false);
    other.proxyCopyPartTo(mpPool, 0, count);
    miLength = count;
}

template<typename T, typename Traits>
tArray<T, Traits>::tArray(tArray&& other) noexcept(!Traits::kTerminated) : tArray(other.settings())
{
    resizePool(0, false);
    swap(other);
}

template<typename T, typename Traits>
tArray<T, Traits>& tArray<T, Traits>::operator=(tArray const& other)
{
    tArray copy(other);
    swap(copy);
    return *this;
}

template<typename T, typename Traits>
unsigned int tArray<T, Traits>::appendGrowing(T element)
{
    unsigned int const index = miLength;
    reserve(tBounds::sum(index, 1, "tArray", "append"));
    mpPool[index] = element;
    setLength(index + 1);
    return index;
}

template<typename T, typename Traits>
void tArray<T, Traits>::checkPosition(unsigned int position) const
{
    if (position > miLength)
        cSTDExceptions::throwOutOfRange("tArray", "insert", cSTDExceptions::ortValue, position, 0, miLength);
}

template<typename T, typename Traits>
template<typename P, tIfText<T, P>>
unsigned int tArray<T, Traits>::append(P text)
{
    char const* const source = text;
    return append(source, tBounds::narrow(std::strlen(source), "tArray", "append"));
}

template<typename T, typename Traits>
unsigned int tArray<T, Traits>::appendElements(unsigned int count, T const& value)
{
    T const element = value;
    unsigned int const index = appendElements(count);
    Traits::fill(mpPool + index, element, count);
    return index;
}

template<typename T, typename Traits>
template<typename P, tIfText<T, P>>
void tArray<T, Traits>::insert(unsigned int position, P text)
{
    char const* const source = text;
    insert(position, source, tBounds::narrow(std::strlen(source), "tArray", "insert"));
}

template<typename T, typename Traits>
void tArray<T, Traits>::erase(unsigned int start, unsigned int count)
{
    unsigned int const end = tBounds::startSize2End(miLength, start, count, "tArray", "erase");
    Traits::move(mpPool + start, mpPool + end, miLength - end);
    miLength -= count;
    resizeToFit(miLength);
}

template<typename T, typename Traits>
void tArray<T, Traits>::erase(unsigned int count)
{
    if (count > miLength)
        cSTDExceptions::throwOutOfRange("tArray", "erase", cSTDExceptions::ortSize, count, 0, miLength);
    truncate(miLength - count);
}

template<typename T, typename Traits>
void tArray<T, Traits>::truncate(unsigned int count)
{
    if (count > miLength)
        cSTDExceptions::throwOutOfRange("tArray", "truncate", cSTDExceptions::ortValue, count, 0, miLength);
    miLength = count;
    resizeToFit(count);
}

template<typename T, typename Traits>
void tArray<T, Traits>::setData(T const* source, unsigned int count)
{
    if (count > miPoolSize) {
        resizeToFit(count);
        Traits::copy(mpPool, source, count);
    } else {
        Traits::move(mpPool, source, count); // first: the source may be our own
        resizeToFit(count);
    }
    miLength = count;
}

template<typename T, typename Traits>
void tArray<T, Traits>::replace(T const& from, T const& to, unsigned int start)
{
    if (miLength == 0)
        return;
    tBounds::checkIndex(miLength, start, "tArray", "replace");
    T const pattern = from;
    T const with = to;
    unsigned int at = start;
    while ((at += Traits::find(mpPool + at, miLength - at, &pattern, 1)) < miLength)
        mpPool[at++] = with;
}

template<typename T, typename Traits>
void tArray<T, Traits>::replace(T const* pattern, unsigned int patternLength, T const* with,
                                unsigned int withLength, unsigned int start)
{
    if (patternLength == 0)
        return;
    if (start > miLength)
        cSTDExceptions::throwOutOfBounds("tArray", "find");
    if (tPool::isInside(pattern) || tPool::isInside(with)) {
        tArray const ownPattern(pattern, patternLength);
        tArray const ownWith(with == nullptr ? pattern : with, with == nullptr ? 0 : withLength);
        return replace(ownPattern.mpPool, patternLength, ownWith.mpPool, ownWith.miLength, start);
    }
    tArrayReplace<T, Traits> const replacement{pattern, patternLength, with,
                                               with == nullptr ? 0 : withLength};
    unsigned int const count = miLength - start;
    unsigned long long const hits = replacement.hits(mpPool + start, count);
    if (hits == 0)
        return;
    unsigned int const newLength =
        tBounds::narrow(miLength - hits * patternLength + hits * replacement.withLength, "tArray", "replace");
    reserve(newLength);
    replacement.run(mpPool + start, count, newLength - start);
    bool const shrunk = newLength < miLength;
    setLength(newLength);
    if (shrunk)
        resizeToFit(newLength);
}

template<typename T, typename Traits>
template<typename P, typename Q, tIfText<T, P>, tIfText<T, Q>>
void tArray<T, Traits>::replace(P a, Q b, unsigned int start)
{
    if (miLength == 0)
        return;
    NEL_ASSERT((a != 0) && (b != 0));
    char const* const pattern = a;
    char const* const with = b;
    replace(pattern, tBounds::narrow(std::strlen(pattern), "tArray", "replace"), with,
            tBounds::narrow(std::strlen(with), "tArray", "replace"), start);
}

template<typename T, typename Traits>
unsigned int tArray<T, Traits>::find(T const* pattern, unsigned int patternLength, bool& found,
                                     unsigned int start, unsigned int count) const
{
    unsigned int const range = tBounds::searchRange(miLength, start, count, "tArray", "find");
    unsigned int const index = Traits::find(mpPool + start, range, pattern, patternLength);
    found = index < range;
    return found ? start + index : start;
}

template<typename T, typename Traits>
template<typename P, tIfText<T, P>>
unsigned int tArray<T, Traits>::find(P text, bool& found, unsigned int start, unsigned int count) const
{
    char const* const pattern = text;
    return find(pattern, tBounds::narrow(std::strlen(pattern), "tArray", "find"), found, start, count);
}

template<typename T, typename Traits>
bool tArray<T, Traits>::endsWith(T const* pattern, unsigned int patternLength) const
{
    return patternLength != 0 && patternLength <= miLength
           && Traits::compare(mpPool + (miLength - patternLength), pattern, patternLength) == 0;
}

template<typename T, typename Traits>
bool tArray<T, Traits>::isEqual(T const* source, unsigned int start, unsigned int count) const
{
    return source != nullptr && start <= miLength && count <= miLength - start
           && Traits::compare(mpPool + start, source, count) == 0;
}

template<typename T, typename Traits>
int tArray<T, Traits>::relation(T const* other, unsigned int count) const
{
    if (mpPool == nullptr || other == nullptr)
        return (mpPool == nullptr ? 0 : 1) - (other == nullptr ? 0 : 1);
    int const order = Traits::compare(mpPool, other, miLength < count ? miLength : count);
    if (order != 0)
        return order < 0 ? -1 : 1;
    return miLength == count ? 0 : (miLength < count ? -1 : 1);
}

template<typename T, typename Traits>
template<typename P>
int tArray<T, Traits>::textRelation(P pWith) const
{
    NEL_ASSERT(pWith);
    T const* const text = pWith;
    return relation(text, tBounds::narrow(std::strlen(text) + 1ULL, "tArray", "relation"));
}

template<typename T, typename Traits>
template<typename Out>
void tArray<T, Traits>::cut(unsigned int start, unsigned int end, Out& out) const
{
    out.clear();
    unsigned int const count = tBounds::startEnd2Size(miLength, start, end, "tArray", "cut");
    out.append(mpPool + start, count);
}

template<typename T, typename Traits>
T const* tArray<T, Traits>::proxyProvideData(unsigned int start, unsigned int count) const
{
    tBounds::startSize2End(miLength, start, count, "tArray", "provideData");
    NEL_ASSERT(mpPool != 0);
    return mpPool + start;
}

template<typename T, typename Traits>
T* tArray<T, Traits>::proxyProvideWriteableData(unsigned int start, unsigned int count)
{
    tBounds::startSize2End(miLength, start, count, "tArray", "proxyProvideWriteableData");
    NEL_ASSERT(mpPool != 0);
    return mpPool + start;
}

template<typename T, typename Traits>
unsigned int tArray<T, Traits>::proxyInsert(unsigned int position, T const* source, unsigned int count)
{
    if (position == miLength)
        append(source, count);
    else
        insert(position, source, count);
    return count;
}

extern template class NEL_EXPORT tArray<char, tArrayByteLevelTraits<char>>;
extern template class NEL_EXPORT tArray<char, tArrayAsciiStringTraits<char>>;
extern template class NEL_EXPORT tArray<unsigned int, tArrayByteLevelTraits<unsigned int>>;
extern template class NEL_EXPORT tArray<unsigned short, tArrayByteLevelTraits<unsigned short>>;

} // namespace nstd
