#pragma once

#include <cstddef>
#include <iterator>

#include "nel_core/std/tIterator.h"

namespace nstd {

/// An iterator that gives read access to the elements; made from either kind. It raises as tIterator does.
template<typename T, typename Node>
class tConstIterator : public tIteratorBase<T, Node> {
public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T const*;
    using reference = T const&;

    /// An iterator without node.
    tConstIterator() noexcept = default;
    explicit tConstIterator(Node const& node) noexcept : tIteratorBase<T, Node>(node) { }
    tConstIterator(tIterator<T, Node> const& other) noexcept : tIteratorBase<T, Node>(other) { }

    T const& operator*() const { return *this->element("iterator::operator*()"); }
    T const* operator->() const { return this->element("iterator::operator*()"); }

    tConstIterator& operator++()
    {
        this->moveForward();
        return *this;
    }
    tConstIterator operator++(int)
    {
        tConstIterator const before(*this);
        this->moveForward();
        return before;
    }
    tConstIterator& operator--()
    {
        this->moveBackward();
        return *this;
    }
    tConstIterator operator--(int)
    {
        tConstIterator const before(*this);
        this->moveBackward();
        return before;
    }
};

} // namespace nstd
