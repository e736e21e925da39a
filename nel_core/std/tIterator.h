#pragma once

#include <cstddef>
#include <iterator>

#include "nel_core/std/tIteratorBase.h"

namespace nstd {

/// An iterator that gives write access to the elements. Dereferencing it where no element is raises
/// out-of-bounds, and so does a step beyond either end.
template<typename T, typename Node>
class tIterator : public tIteratorBase<T, Node> {
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T*;
    using reference = T&;

    /// An iterator without node.
    tIterator() noexcept = default;
    explicit tIterator(Node const& node) noexcept : tIteratorBase<T, Node>(node) { }

    T& operator*() const { return *this->element("tIterator::operator*()"); }
    T* operator->() const { return this->element("tIterator::operator*()"); }

    tIterator& operator++()
    {
        this->moveForward();
        return *this;
    }
    tIterator operator++(int)
    {
        tIterator const before(*this);
        this->moveForward();
        return before;
    }
    tIterator& operator--()
    {
        this->moveBackward();
        return *this;
    }
    tIterator operator--(int)
    {
        tIterator const before(*this);
        this->moveBackward();
        return before;
    }
};

} // namespace nstd
