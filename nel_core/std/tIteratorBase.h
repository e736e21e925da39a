#pragma once

#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/fwd.h"

namespace nstd {

/// The position of an iterator in a container, and the moves that both kinds of iterators share.
///
/// `Node` is the container's idea of a position: it steps with `next()` and `previous()`, which tell whether
/// there was a step to make, and gives the element it stands on with `element()`, null on none. Every misuse
/// raises out-of-bounds and leaves the iterator where it is.
template<typename T, typename Node>
class tIteratorBase {
public:
    tIteratorBase(tIteratorBase const&) noexcept = default;
    tIteratorBase& operator=(tIteratorBase const&) noexcept = default;
    virtual ~tIteratorBase() = default;

    /// Iterators are equal when they stand on the same node.
    bool operator==(tIteratorBase const& other) const noexcept { return mNode == other.mNode; }
    bool operator!=(tIteratorBase const& other) const noexcept { return !(mNode == other.mNode); }

    /// Marks the node for the container's next purge; it stays linked until then. Raises out-of-bounds
    /// when the iterator has no node, or one that cannot be marked.
    void eraseLater() const
    {
        if (!mNode.setEraseLater(true))
            cSTDExceptions::throwOutOfBounds("tList", "iterator::eraseLater()");
    }
    /// Takes the mark of eraseLater() back, if there is one.
    void cancelEraseLater() const { mNode.setEraseLater(false); }
    /// True when the node is marked for the next purge.
    bool isEraseLater() const noexcept { return mNode.isEraseLater(); }

    /// The node the iterator stands on, null when it has none.
    auto node() const noexcept { return mNode.node(); }

protected:
    tIteratorBase() noexcept = default;
    explicit tIteratorBase(Node const& node) noexcept : mNode(node) { }

    void moveForward()
    {
        if (!mNode.next())
            cSTDExceptions::throwOutOfBounds("tList", "cIteratorBase::operator++()");
    }
    void moveBackward()
    {
        if (!mNode.previous())
            cSTDExceptions::throwOutOfBounds("tList", "cIteratorBase::operator--()");
    }
    T* element(char const* operation) const
    {
        T* const found = mNode.element();
        if (!found)
            cSTDExceptions::throwOutOfBounds("tList", operation);
        return found;
    }

private:
    Node mNode;
};

} // namespace nstd
