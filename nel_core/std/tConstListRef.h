#pragma once

#include <utility>

#include "nel_core/std/fwd.h"
#include "nel_core/std/tAutoPtr.h"

namespace nstd {

/// A place in a sequence of elements that can be walked once, forwards: a directory, say.
template<typename T>
class tConstListRefNode {
public:
    virtual ~tConstListRefNode() = default;

    /// Goes to the next element.
    virtual void setNext() = 0;
    /// Whether there is no element here.
    virtual bool isEnd() const = 0;
    /// The element, valid until setNext().
    virtual T const& element() const = 0;
    /// Another node at the same place.
    [[nodiscard]] virtual tAutoPtr<tConstListRefNode> createNodeCopy() const = 0;
};

/// A sequence that is read element by element from wherever its node gets them. A copy walks on its own from
/// the same place.
template<typename T>
class tConstListRef {
public:
    /// What a range-for walks with: it moves the sequence itself.
    class iterator {
    public:
        explicit iterator(tConstListRefNode<T>* node) : mpNode(node) { }
        T const& operator*() const { return mpNode->element(); }
        T const* operator->() const { return &mpNode->element(); }
        iterator& operator++()
        {
            mpNode->setNext();
            return *this;
        }
        /// Only the comparison with the end makes sense.
        bool operator!=(iterator const& other) const { return isEnd() != other.isEnd(); }
        bool operator==(iterator const& other) const { return isEnd() == other.isEnd(); }

    private:
        bool isEnd() const { return !mpNode || mpNode->isEnd(); }

        tConstListRefNode<T>* mpNode;
    };

    /// The elements from the node's place on, which is copied.
    explicit tConstListRef(tConstListRefNode<T> const& node) : mpNode(node.createNodeCopy()) { }
    /// Takes the node over; null gives an empty sequence.
    explicit tConstListRef(tAutoPtr<tConstListRefNode<T>> node) : mpNode(std::move(node)) { }
    tConstListRef(tConstListRef const& other)
    {
        if (other.mpNode)
            mpNode = other.mpNode->createNodeCopy();
    }
    tConstListRef(tConstListRef&& other) noexcept = default;
    tConstListRef& operator=(tConstListRef other) noexcept
    {
        mpNode.swap(other.mpNode);
        return *this;
    }

    /// Goes to the next element; stays at the end.
    void setNext()
    {
        if (!isEnd())
            mpNode->setNext();
    }
    bool isEnd() const { return !mpNode || mpNode->isEnd(); }
    /// The element here, valid until setNext(); there must be one.
    T const& element() const { return mpNode->element(); }

    iterator begin() { return iterator(mpNode.get()); }
    iterator end() { return iterator(nullptr); }

private:
    tAutoPtr<tConstListRefNode<T>> mpNode;
};

} // namespace nstd
