#pragma once

#include "nel_core/export.h"
#include "nel_core/std/tArrayView.h"

namespace nstd {

/// A read-only view of a part of an array or of any other proxy.
///
/// It refers to the physical proxy directly, also when it is made of another view. Making, copying and
/// cutting views takes constant time. Views of both traits convert into each other through the proxy
/// interface.
template<typename T, typename Traits>
class tConstArrayRef : public tArrayView<T, Traits, tAbstractConstArrayProxy<T>> {
public:
    /// An unset view.
    tConstArrayRef() = default;
    /// Everything of `proxy` from `start` on; see set().
    tConstArrayRef(tAbstractConstArrayProxy<T> const& proxy, unsigned int start = 0)
    {
        this->set(proxy, start);
    }
    /// The `count` elements of `proxy` from `start` on; see set().
    tConstArrayRef(tAbstractConstArrayProxy<T> const& proxy, unsigned int start, unsigned int count)
    {
        this->set(proxy, start, count);
    }

    /// A view of our elements [start, end), checked as by tArray::cut(). An unset view asserts.
    tConstArrayRef cut(unsigned int start, unsigned int end) const
    {
        tConstArrayRef part(*this);
        part.narrow(start, end);
        return part;
    }
};

extern template class NEL_EXPORT tConstArrayRef<char, tArrayByteLevelTraits<char>>;
extern template class NEL_EXPORT tConstArrayRef<char, tArrayAsciiStringTraits<char>>;
extern template class NEL_EXPORT tConstArrayRef<unsigned int, tArrayByteLevelTraits<unsigned int>>;
extern template class NEL_EXPORT tConstArrayRef<unsigned short, tArrayByteLevelTraits<unsigned short>>;

} // namespace nstd
