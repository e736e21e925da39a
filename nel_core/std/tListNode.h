#pragma once

#include "nel_core/std/fwd.h"

namespace nstd {

/// A link of a tList: a sentinel, or the base of a node with an element. Destroying it takes it out of the
/// list it is in.
template<typename T>
class tListNodeBaseType {
public:
    tListNodeBaseType() noexcept = default;
    tListNodeBaseType(tListNodeBaseType const&) = delete;
    tListNodeBaseType& operator=(tListNodeBaseType const&) = delete;
    virtual ~tListNodeBaseType() { unlink(); }

    /// This node with its element, null for a sentinel.
    virtual tListElementNodeType<T>* isElementNode() noexcept { return nullptr; }

    /// The same for a node in a list, told by the links: the head has no previous node, the tail no next.
    tListElementNodeType<T>* linkedElement() noexcept
    {
        return mpPrevious && mpNext ? static_cast<tListElementNodeType<T>*>(this) : nullptr;
    }

    tListNodeBaseType* previous() const noexcept { return mpPrevious; }
    tListNodeBaseType* next() const noexcept { return mpNext; }
    bool isEraseLater() const noexcept { return mbEraseLater; }
    void setEraseLater(bool mark) noexcept { mbEraseLater = mark; }
    /// A flag for the owner of the list, which tells something of the element without a look at it; false at
    /// first.
    bool isFlagged() const noexcept { return mbFlagged; }
    void setFlag(bool flag) noexcept { mbFlagged = flag; }

    /// Links this unlinked node before `where`, which is linked or a tail sentinel.
    void linkBefore(tListNodeBaseType& where) noexcept
    {
        join(where.mpPrevious, this);
        join(this, &where);
    }
    /// Joins the neighbours, if there are any, and leaves this node without.
    void unlink() noexcept
    {
        if (mpPrevious)
            mpPrevious->mpNext = mpNext;
        if (mpNext)
            mpNext->mpPrevious = mpPrevious;
        mpPrevious = nullptr;
        mpNext = nullptr;
    }
    /// Makes two nodes neighbours, whatever they were linked to.
    static void join(tListNodeBaseType* before, tListNodeBaseType* after) noexcept
    {
        before->mpNext = after;
        after->mpPrevious = before;
    }

private:
    tListNodeBaseType* mpPrevious = nullptr;
    tListNodeBaseType* mpNext = nullptr;
    bool mbEraseLater = false;
    bool mbFlagged = false;
};

/// A node that holds an element of a tList.
template<typename T>
class tListElementNodeType final : public tListNodeBaseType<T> {
public:
    explicit tListElementNodeType(T const& value) : mElement(value) { }
    /// Out of the list first: the destructor of the element may change it.
    ~tListElementNodeType() override { this->unlink(); }

    tListElementNodeType* isElementNode() noexcept override { return this; }
    T& element() noexcept { return mElement; }
    T const& element() const noexcept { return mElement; }

private:
    T mElement;
};

/// The head sentinel of a list with the tail sentinel inside, so that a list costs one allocation. It
/// deletes the element nodes that are left between the two.
template<typename T>
class tListHeadNodeType final : public tListNodeBaseType<T> {
public:
    tListHeadNodeType() noexcept { this->join(this, &mTail); }
    ~tListHeadNodeType() override
    {
        while (!isAlone())
            delete this->next();
    }

    tListNodeBaseType<T>& tail() noexcept { return mTail; }
    /// True when no element node is between the sentinels.
    bool isAlone() const noexcept { return this->next() == &mTail; }
    /// Moves all element nodes of this chain before `where`, a node of another chain.
    void spliceBefore(tListNodeBaseType<T>& where) noexcept
    {
        if (isAlone())
            return;
        auto* const first = this->next();
        auto* const last = mTail.previous();
        this->join(this, &mTail);
        this->join(where.previous(), first);
        this->join(last, &where);
    }

private:
    tListNodeBaseType<T> mTail;
};

} // namespace nstd
