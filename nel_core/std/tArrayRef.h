#pragma once

#include "nel_core/export.h"
#include "nel_core/std/tArrayView.h"

namespace nstd {

/// A writeable view of a part of an array or of any other proxy.
///
/// Writing changes the physical proxy and sets the view anew, which takes over the proxy's block size again.
/// Other views of the same proxy do not notice. Writing to an unset view asserts "mpData != 0"; the checks
/// come before any change.
template<typename T, typename Traits>
class tArrayRef : public tArrayView<T, Traits, tAbstractArrayProxy<T>> {
    typedef tArrayView<T, Traits, tAbstractArrayProxy<T>> tView;

public:
    using tView::at;
    using tView::operator[];
    using tView::proxyAt;

    /// An unset view.
    tArrayRef() = default;
    /// Everything of `proxy` from `start` on; see set().
    tArrayRef(tAbstractArrayProxy<T>& proxy, unsigned int start = 0) { this->set(proxy, start); }
    /// The `count` elements of `proxy` from `start` on; see set().
    tArrayRef(tAbstractArrayProxy<T>& proxy, unsigned int start, unsigned int count)
    {
        this->set(proxy, start, count);
    }

    /// The writeable element at `i`; raises out-of-range ortIndex.
    T& at(unsigned int i)
    {
        tBounds::checkIndex(miLength, i, "tArrayRef", "at");
        return physical().proxyAt(miOffset + i);
    }
    /// The writeable element at `i`, checked by nothing but the physical proxy.
    T& operator[](unsigned int i) { return physical().proxyAt(miOffset + i); }

    /// Inserts at the view's end and widens the view. Gives the old length.
    unsigned int append(T const& element);
    unsigned int append(T const* source, unsigned int count);
    template<typename P, tIfText<T, P> = 0>
    unsigned int append(P text)
    {
        return append(text, tView::textLength(text, "append"));
    }
    /// Inserts in front of `position` and widens the view; beyond the length raises out-of-range ortIndex.
    void insert(unsigned int position, T const* source, unsigned int count);
    /// Removes the `count` elements from `start` on and narrows the view.
    void erase(unsigned int start, unsigned int count);
    /// Removes all but the first `count` elements. As many as there are, or more, raises out-of-range
    /// ortIndex, except that an empty view may be truncated to 0.
    void truncate(unsigned int count);
    /// Makes the length `count`: truncates the view, or opens a gap of undefined elements at its end.
    void setSize(unsigned int count);
    /// A view of our elements [start, end), checked as by tArray::cut(). An unset view asserts.
    tArrayRef cut(unsigned int start, unsigned int end) const
    {
        tArrayRef part(*this);
        part.narrow(start, end);
        return part;
    }

    T& proxyAt(unsigned int i) override { return at(i); }
    T* proxyProvideWriteableData(unsigned int start, unsigned int count) override;
    void proxyPatchData(unsigned int start, unsigned int count, T const* source) override;
    /// Changes the size of the physical proxy and leaves the view as it is.
    void proxySetSize(unsigned int count) override { physical().proxySetSize(count); }
    unsigned int proxyInsert(unsigned int position, T const* source, unsigned int count) override;
    /// The whole range [position, position + count) must lie inside the view.
    unsigned int proxyInsertDefaultObjects(unsigned int position, unsigned int count) override;
    void proxyErase(unsigned int start, unsigned int count) override { erase(start, count); }
    tAbstractArrayProxy<T>& proxyPhysical(unsigned int& offset) override
    {
        offset = miOffset;
        return physical();
    }

private:
    using tView::kContainer;
    using tView::miLength;
    using tView::miOffset;
    using tView::mpData;
    using tView::physical;
    using tView::requireSet;

    unsigned int insertAt(unsigned int position, T const* source, unsigned int count, char const* operation);
    unsigned int openGap(unsigned int position, unsigned int count, char const* operation);
    void resetLength(unsigned int length) { tView::set(*mpData, miOffset, length); }
};

template<typename T, typename Traits>
unsigned int tArrayRef<T, Traits>::append(T const& element)
{
    T const copy = element; // it may lie in the proxy
    return append(&copy, 1);
}

template<typename T, typename Traits>
unsigned int tArrayRef<T, Traits>::append(T const* source, unsigned int count)
{
    unsigned int const index = miLength;
    insertAt(index, source, count, "append");
    return index;
}

template<typename T, typename Traits>
void tArrayRef<T, Traits>::insert(unsigned int position, T const* source, unsigned int count)
{
    proxyInsert(position, source, count);
}

template<typename T, typename Traits>
void tArrayRef<T, Traits>::erase(unsigned int start, unsigned int count)
{
    tAbstractArrayProxy<T>& proxy = physical();
    tBounds::startSize2End(miLength, start, count, kContainer, "erase");
    proxy.proxyErase(miOffset + start, count);
    resetLength(miLength - count);
}

template<typename T, typename Traits>
void tArrayRef<T, Traits>::truncate(unsigned int count)
{
    requireSet();
    if (count == 0 && miLength == 0)
        return;
    tBounds::checkIndex(miLength, count, kContainer, "truncate");
    erase(count, miLength - count);
}

template<typename T, typename Traits>
void tArrayRef<T, Traits>::setSize(unsigned int count)
{
    requireSet();
    if (count < miLength)
        truncate(count);
    else if (count > miLength)
        openGap(miLength, count - miLength, "setSize");
}

template<typename T, typename Traits>
T* tArrayRef<T, Traits>::proxyProvideWriteableData(unsigned int start, unsigned int count)
{
    tAbstractArrayProxy<T>& proxy = physical();
    tBounds::startSize2End(miLength, start, count, kContainer, "proxyProvideWriteableData");
    return proxy.proxyProvideWriteableData(miOffset + start, count);
}

template<typename T, typename Traits>
void tArrayRef<T, Traits>::proxyPatchData(unsigned int start, unsigned int count, T const* source)
{
    tAbstractArrayProxy<T>& proxy = physical();
    tBounds::startSize2End(miLength, start, count, kContainer, "proxyPatchData");
    proxy.proxyPatchData(miOffset + start, count, source);
}

template<typename T, typename Traits>
unsigned int tArrayRef<T, Traits>::proxyInsert(unsigned int position, T const* source, unsigned int count)
{
    requireSet();
    if (position > miLength)
        cSTDExceptions::throwOutOfRange(kContainer, "insert", cSTDExceptions::ortIndex, position, 0,
                                        miLength);
    return insertAt(position, source, count, "insert");
}

template<typename T, typename Traits>
unsigned int tArrayRef<T, Traits>::proxyInsertDefaultObjects(unsigned int position, unsigned int count)
{
    requireSet();
    tBounds::startSize2End(miLength, position, count, kContainer, "proxyInsertDefaultObjects");
    return openGap(position, count, "proxyInsertDefaultObjects");
}

template<typename T, typename Traits>
unsigned int tArrayRef<T, Traits>::insertAt(unsigned int position, T const* source, unsigned int count,
                                            char const* operation)
{
    tAbstractArrayProxy<T>& proxy = physical();
    tBounds::sum(miLength, count, kContainer, operation);
    unsigned int const inserted = proxy.proxyInsert(miOffset + position, source, count);
    resetLength(miLength + inserted);
    return inserted;
}

template<typename T, typename Traits>
unsigned int tArrayRef<T, Traits>::openGap(unsigned int position, unsigned int count, char const* operation)
{
    tAbstractArrayProxy<T>& proxy = physical();
    tBounds::sum(miLength, count, kContainer, operation);
    unsigned int const inserted = proxy.proxyInsertDefaultObjects(miOffset + position, count);
    resetLength(miLength + inserted);
    return inserted;
}

extern template class NEL_EXPORT tArrayRef<char, tArrayByteLevelTraits<char>>;

} // namespace nstd
