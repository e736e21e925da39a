#pragma once

#include "nel_core/std/piAssert.h"
#include "nel_core/std/tVector.h"

namespace nstd {

/// A stack on top of a vector. Reading or popping an empty one raises an assertion.
template<typename T>
class tStack {
public:
    using iterator = typename tVector<T>::iterator;
    using const_iterator = typename tVector<T>::const_iterator;

    /// Puts a copy of `value` on top and returns it.
    T& push(T const& value)
    {
        T& pushed = mElements.append(value);
        ++miTopIdx;
        return pushed;
    }
    /// Takes the top element off.
    T pop()
    {
        T const value(top());
        mElements.remove(--miTopIdx);
        return value;
    }
    T& top() { return mElements[topIndex()]; }
    T const& top() const { return mElements[topIndex()]; }

    bool empty() const noexcept { return miTopIdx == 0; }
    unsigned int size() const noexcept { return miTopIdx; }

    /// From the bottom to the top.
    iterator begin() { return mElements.begin(); }
    iterator end() { return mElements.end(); }
    const_iterator begin() const { return mElements.begin(); }
    const_iterator end() const { return mElements.end(); }

private:
    unsigned int topIndex() const
    {
        NEL_ASSERT(miTopIdx);
        return miTopIdx - 1;
    }

    tVector<T> mElements;
    unsigned int miTopIdx = 0; ///< one above the index of the top element
};

} // namespace nstd
