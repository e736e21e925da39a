#pragma once

#include <cstring>
#include <type_traits>

#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/tAbstractArrayProxy.h"
#include "nel_core/std/tArrayAsciiStringTraits.h"
#include "nel_core/std/tArrayByteLevelTraits.h"
#include "nel_core/std/tBounds.h"
#include "nel_core/std/tIfText.h"

namespace nstd {

/// What both views have in common: a part of a physical proxy, and everything that only reads it.
///
/// `Base` is the proxy interface of the view, read-only or writeable. A view never owns elements: the proxy
/// to which it refers outlives it and is not changed behind its back. Elements of a proxy with blocks are
/// fetched in pieces of at most the op block size. Positions count from the start of the view. Not
/// synchronised.
template<typename T, typename Traits, typename Base>
class tArrayView : public Base {
    static constexpr bool kWriteable = std::is_same_v<Base, tAbstractArrayProxy<T>>;

public:
    using Base::proxyAt;

    /// The element type of a view, and the sign that a class is one.
    typedef T tViewElement;
    /// The proxy to which the view refers.
    typedef std::conditional_t<kWriteable, Base, Base const> tProxy;

    /// Views everything of `proxy` from `start` on. Further than its end raises out-of-range ortSize, counted
    /// in the physical proxy. Takes the block size of the physical proxy. An unset view as proxy asserts.
    void set(tProxy& proxy, unsigned int start);
    /// Views the `count` elements of `proxy` from `start` on; leaving it raises as tBounds::startSize2End().
    void set(tProxy& proxy, unsigned int start, unsigned int count);
    /// Makes the view an unset one.
    void clear();
    /// Fetches at most `size` elements at a time, until the view is set again; 0 means all of them.
    void setOpBlockSize(unsigned int size) { miOpBlockSize = size; }

    /// The position of the view's first element in the physical proxy.
    unsigned int offset() const { return miOffset; }
    /// The number of elements.
    unsigned int length() const { return miLength; }
    unsigned int size() const { return miLength; }
    bool empty() const { return miLength == 0; }
    /// The element at `i`; raises out-of-range ortIndex.
    T const& at(unsigned int i) const
    {
        tBounds::checkIndex(miLength, i, "tArrayRef", "at");
        return physical().proxyAt(miOffset + i);
    }
    /// The element at `i`, checked by nothing but the physical proxy. An unset view asserts.
    T const& operator[](unsigned int i) const { return physical().proxyAt(miOffset + i); }

    /// As tArray::find(); with an op block size, and on an unset view, the result is 0 when nothing is found.
    unsigned int find(T const* pattern, unsigned int patternLength, bool& found, unsigned int start = 0,
                      unsigned int count = 0) const;
    unsigned int find(T const& element, bool& found, unsigned int start = 0, unsigned int count = 0) const
    {
        return find(&element, 1, found, start, count);
    }
    template<typename P, tIfText<T, P> = 0>
    unsigned int find(P text, bool& found, unsigned int start = 0, unsigned int count = 0) const
    {
        return find(text, textLength(text, "find"), found, start, count);
    }
    /// Whether the whole view has an occurrence.
    bool contains(T const* pattern, unsigned int patternLength) const
    {
        bool found = false;
        find(pattern, patternLength, found);
        return found;
    }
    bool contains(T const& element) const { return contains(&element, 1); }
    template<typename P, tIfText<T, P> = 0>
    bool contains(P text) const
    {
        return contains(text, textLength(text, "find"));
    }
    /// An empty pattern begins every view, but ends none.
    bool beginsWith(T const* pattern, unsigned int patternLength) const
    {
        return patternLength <= miLength && compare(0, pattern, patternLength) == 0;
    }
    bool endsWith(T const* pattern, unsigned int patternLength) const
    {
        return patternLength != 0 && patternLength <= miLength
               && compare(miLength - patternLength, pattern, patternLength) == 0;
    }
    /// Whether the `count` elements from `start` (or the first one) on equal those at `source`. False for a
    /// null source and when there are fewer.
    bool isEqual(T const* source, unsigned int start, unsigned int count) const
    {
        return source != nullptr && start <= miLength && count <= miLength - start
               && compare(start, source, count) == 0;
    }
    bool isEqual(T const* source, unsigned int count) const { return isEqual(source, 0, count); }
    /// -1, 0 or 1 by the unsigned bytes of the common prefix, then by length. An unset view comes before
    /// everything else; a null `other` counts as one. The comparison operators follow this order.
    int relation(T const* other, unsigned int count) const;
    template<typename OtherTraits, typename OtherBase>
    int relation(tArrayView<T, OtherTraits, OtherBase> const& other) const
    {
        return relationTo(other.mpData, other.miOffset, other.miLength, other.miOpBlockSize);
    }
    int relation(tAbstractConstArrayProxy<T> const& other) const;
    /// Against a text, without its terminator; null asserts.
    template<typename P, tIfText<T, P> = 0>
    int relation(P p) const
    {
        NEL_ASSERT_AT(p, kSource, __LINE__);
        return relation(p, textLength(p, "relation"));
    }

    T const& proxyAt(unsigned int i) const override { return at(i); }
    unsigned int proxyLength() const override { return miLength; }
    void proxyCopyPartTo(T* target, unsigned int start, unsigned int count) const override;
    T const* proxyProvideData(unsigned int start, unsigned int count) const override;
    unsigned int proxyPreferredBlockSize() const override { return miOpBlockSize; }
    tAbstractConstArrayProxy<T> const& constProxyPhysical(unsigned int& offset) const override
    {
        offset = miOffset;
        return physical();
    }

protected:
    static constexpr char const* kContainer = kWriteable ? "tArrayRef" : "tConstArrayRef";
    static constexpr char const* kSource =
        kWriteable ? "nel_core/std/tArrayRef" : "nel_core/std/tConstArrayRef";

    tArrayView() = default;

    /// An unset view asserts.
    void requireSet() const { NEL_ASSERT_AT(mpData != 0, kSource, __LINE__); }
    /// The physical proxy; an unset view asserts.
    tProxy& physical() const
    {
        requireSet();
        return *mpData;
    }
    /// Keeps the elements [start, end) only, checked as tArray::cut() does. An unset view asserts.
    void narrow(unsigned int start, unsigned int end);
    static unsigned int textLength(char const* text, char const* operation)
    {
        return tBounds::narrow(std::strlen(text), kContainer, operation);
    }

    tProxy* mpData = nullptr;  ///< the physical proxy, not owned; null for an unset view
    unsigned int miOffset = 0; ///< of the view's first element in the physical proxy
    unsigned int miLength = 0;
    unsigned int miOpBlockSize = 0;

private:
    template<typename, typename, typename>
    friend class tArrayView;

    typedef tAbstractConstArrayProxy<T> tConstProxy;

    /// The physical proxy of any proxy of our kind.
    static tProxy& physicalOf(tProxy& proxy, unsigned int& offset);
    /// Three-way comparison of [start, start + count), which lies inside the view, with as many elements.
    int compare(unsigned int start, T const* other, unsigned int count) const;
    int relationTo(tConstProxy const* other, unsigned int offset, unsigned int length,
                   unsigned int blockSize) const;
    int compareTo(tConstProxy const& other, unsigned int offset, unsigned int count,
                  unsigned int blockSize) const;
};

template<typename T, typename Traits, typename Base>
auto tArrayView<T, Traits, Base>::physicalOf(tProxy& proxy, unsigned int& offset) -> tProxy&
{
    if constexpr (kWriteable)
        return proxy.proxyPhysical(offset);
    else
        return proxy.constProxyPhysical(offset);
}

template<typename T, typename Traits, typename Base>
void tArrayView<T, Traits, Base>::set(tProxy& proxy, unsigned int start)
{
    unsigned int const length = proxy.proxyLength();
    if (start <= length)
        return set(proxy, start, length - start);
    unsigned int offset = 0;
    physicalOf(proxy, offset);
    unsigned int const first = tBounds::sum(offset, start, "tConstArrayRef", "set");
    cSTDExceptions::throwOutOfRange("tConstArrayRef", "set", cSTDExceptions::ortSize, first, 0,
                                    static_cast<long long>(offset) + length);
}

template<typename T, typename Traits, typename Base>
void tArrayView<T, Traits, Base>::set(tProxy& proxy, unsigned int start, unsigned int count)
{
    unsigned int offset = 0;
    tProxy& physical = physicalOf(proxy, offset);
    unsigned int const first = tBounds::sum(offset, start, "tConstArrayRef", "set");
    unsigned int const end = tBounds::sum(offset, proxy.proxyLength(), "tConstArrayRef", "set");
    tBounds::startSize2End(end, first, count, "tConstArrayRef", "set");
    unsigned int const blockSize = physical.proxyPreferredBlockSize();
    mpData = &physical;
    miOffset = first;
    miLength = count;
    miOpBlockSize = blockSize;
}

template<typename T, typename Traits, typename Base>
void tArrayView<T, Traits, Base>::clear()
{
    mpData = nullptr;
    miOffset = 0;
    miLength = 0;
}

template<typename T, typename Traits, typename Base>
void tArrayView<T, Traits, Base>::narrow(unsigned int start, unsigned int end)
{
    requireSet();
    miLength = tBounds::startEnd2Size(miLength, start, end, kContainer, "cut");
    miOffset += start;
}

// Pieces overlap by the pattern's length less one, so that a match across their border is found.
template<typename T, typename Traits, typename Base>
unsigned int tArrayView<T, Traits, Base>::find(T const* pattern, unsigned int patternLength, bool& found,
                                               unsigned int start, unsigned int count) const
{
    found = false;
    if (mpData == nullptr)
        return 0;
    unsigned int remaining = tBounds::searchRange(miLength, start, count, kContainer, "find");
    unsigned int const wanted = miOpBlockSize == 0 ? remaining : miOpBlockSize;
    unsigned int const width = wanted < patternLength ? patternLength : wanted;
    for (unsigned int at = start; patternLength != 0 && remaining >= patternLength;) {
        unsigned int const piece = width < remaining ? width : remaining;
        T const* const data = mpData->proxyProvideData(miOffset + at, piece);
        unsigned int const hit = Traits::find(data, piece, pattern, patternLength);
        found = hit < piece;
        if (found)
            return at + hit;
        unsigned int const step = piece - patternLength + 1;
        at += step;
        remaining -= step;
    }
    return miOpBlockSize == 0 ? start : 0;
}

template<typename T, typename Traits, typename Base>
int tArrayView<T, Traits, Base>::compare(unsigned int start, T const* other, unsigned int count) const
{
    unsigned int const width = miOpBlockSize == 0 ? count : miOpBlockSize;
    for (unsigned int done = 0; done < count;) {
        unsigned int const piece = width < count - done ? width : count - done;
        T const* const data = mpData->proxyProvideData(miOffset + start + done, piece);
        if (int const order = Traits::compare(data, other + done, piece); order != 0)
            return order < 0 ? -1 : 1;
        done += piece;
    }
    return 0;
}

template<typename T, typename Traits, typename Base>
int tArrayView<T, Traits, Base>::relation(T const* other, unsigned int count) const
{
    if (mpData == nullptr || other == nullptr)
        return (mpData == nullptr ? 0 : 1) - (other == nullptr ? 0 : 1);
    int const order = compare(0, other, miLength < count ? miLength : count);
    return order != 0 ? order : (miLength < count ? -1 : (miLength > count ? 1 : 0));
}

template<typename T, typename Traits, typename Base>
int tArrayView<T, Traits, Base>::relation(tAbstractConstArrayProxy<T> const& other) const
{
    unsigned int offset = 0;
    tConstProxy const& data = other.constProxyPhysical(offset);
    return relationTo(&data, offset, other.proxyLength(), data.proxyPreferredBlockSize());
}

template<typename T, typename Traits, typename Base>
int tArrayView<T, Traits, Base>::relationTo(tConstProxy const* other, unsigned int offset,
                                            unsigned int length, unsigned int blockSize) const
{
    if (mpData == nullptr || other == nullptr)
        return (mpData == nullptr ? 0 : 1) - (other == nullptr ? 0 : 1);
    int const order = compareTo(*other, offset, miLength < length ? miLength : length, blockSize);
    return order != 0 ? order : (miLength < length ? -1 : (miLength > length ? 1 : 0));
}

// Blocks of the other side are copied: our own requests may go to the same proxy and end their validity.
template<typename T, typename Traits, typename Base>
int tArrayView<T, Traits, Base>::compareTo(tConstProxy const& other, unsigned int offset, unsigned int count,
                                           unsigned int blockSize) const
{
    if (count == 0)
        return 0;
    if (blockSize == 0)
        return compare(0, other.proxyProvideData(offset, count), count);
    T buffer[sizeof(T) < 512 ? 512 / sizeof(T) : 1];
    unsigned int const room = static_cast<unsigned int>(sizeof(buffer) / sizeof(T));
    unsigned int const width = blockSize < room ? blockSize : room;
    for (unsigned int done = 0; done < count;) {
        unsigned int const piece = width < count - done ? width : count - done;
        other.proxyCopyPartTo(buffer, offset + done, piece);
        if (int const order = compare(done, buffer, piece); order != 0)
            return order;
        done += piece;
    }
    return 0;
}

template<typename T, typename Traits, typename Base>
void tArrayView<T, Traits, Base>::proxyCopyPartTo(T* target, unsigned int start, unsigned int count) const
{
    tBounds::startSize2End(miLength, start, count, kContainer, "copyPartTo");
    physical().proxyCopyPartTo(target, miOffset + start, count);
}

template<typename T, typename Traits, typename Base>
T const* tArrayView<T, Traits, Base>::proxyProvideData(unsigned int start, unsigned int count) const
{
    tBounds::startSize2End(miLength, start, count, kContainer, "provideData");
    return physical().proxyProvideData(miOffset + start, count);
}

/// Enables the comparison of a view with everything to which it has a relation().
template<typename View, typename Other>
using tIfRelated = decltype(static_cast<typename View::tViewElement const*>(nullptr),
                            static_cast<View const*>(nullptr)->relation(*static_cast<Other const*>(nullptr)));

/// Comparison of a view with another view, an array or a zero-terminated text, by View::relation().
template<typename View, typename Other, tIfRelated<View, Other> = 0>
bool operator==(View const& view, Other const& other)
{
    return view.relation(other) == 0;
}
template<typename View, typename Other, tIfRelated<View, Other> = 0>
bool operator!=(View const& view, Other const& other)
{
    return view.relation(other) != 0;
}
template<typename View, typename Other, tIfRelated<View, Other> = 0>
bool operator<(View const& view, Other const& other)
{
    return view.relation(other) < 0;
}
template<typename View, typename Other, tIfRelated<View, Other> = 0>
bool operator<=(View const& view, Other const& other)
{
    return view.relation(other) <= 0;
}
template<typename View, typename Other, tIfRelated<View, Other> = 0>
bool operator>(View const& view, Other const& other)
{
    return view.relation(other) > 0;
}
template<typename View, typename Other, tIfRelated<View, Other> = 0>
bool operator>=(View const& view, Other const& other)
{
    return view.relation(other) >= 0;
}

} // namespace nstd
