#pragma once

#include "nel_core/std/piAssert.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tList.h"

namespace nstd {

/// The place of an object in a tree of objects of its kind. The object embeds the watch; when it goes, its
/// parent adopts its children. Nothing is owned, and moving about in the tree costs no walk over siblings.
template<typename T>
class tParentWatch {
public:
    using childList = tList<tParentWatch<T>*>;

    /// A root without children that stands for `object`.
    explicit tParentWatch(T* object) noexcept : mpObject(object) { }
    tParentWatch(tParentWatch const&) = delete;
    tParentWatch& operator=(tParentWatch const&) = delete;
    ~tParentWatch() { unlinkAndReparentChildren(); }

    T* object() const noexcept { return mpObject; }
    /// The parent's object, null for a root; raises an assertion when the parent has none.
    T* parent() const { return mpParent ? mpParent->requireObject() : nullptr; }
    bool hasChildren() const noexcept { return mpChildren && !mpChildren->empty(); }
    /// The children in the order in which they came; the list belongs to this node.
    childList const& children() const { return ownChildren(); }

    /// Leaves the old parent and becomes the last child of `parent`, a root when that is null. Nothing
    /// happens when `parent` is this node or one of its descendants.
    void setParent(tParentWatch* parent);
    /// Leaves the tree. The parent adopts the children, in their order, after its own; without a parent
    /// each becomes a root.
    void unlinkAndReparentChildren();

private:
    T* requireObject() const
    {
        NEL_ASSERT(mpObject != 0);
        return mpObject;
    }
    childList& ownChildren() const;
    bool isAncestorOf(tParentWatch const& node) const noexcept;
    void leaveParent();

    T* mpObject;
    tParentWatch* mpParent = nullptr;
    mutable tAutoPtr<childList> mpChildren;          ///< made when it is first needed; most nodes never do
    typename childList::nodeType* mpEntry = nullptr; ///< ours in the parent's list; null for a root
};

template<typename T>
void tParentWatch<T>::setParent(tParentWatch* parent)
{
    if (parent && isAncestorOf(*parent))
        return;
    typename childList::nodeType* entry = nullptr;
    if (parent) {
        parent->ownChildren().append(this);
        entry = parent->mpChildren->last().node();
    }
    leaveParent();
    mpParent = parent;
    mpEntry = entry;
}

template<typename T>
void tParentWatch<T>::unlinkAndReparentChildren()
{
    tParentWatch* const parent = mpParent;
    leaveParent();
    if (!hasChildren())
        return;

    for (tParentWatch* child : *mpChildren) {
        child->mpParent = parent;
        if (!parent)
            child->mpEntry = nullptr;
    }
    if (parent)
        parent->ownChildren().take(parent->mpChildren->end(), *mpChildren);
    else
        mpChildren->clear();
}

template<typename T>
typename tParentWatch<T>::childList& tParentWatch<T>::ownChildren() const
{
    if (!mpChildren)
        mpChildren.reset(new childList, tAutoPtrType::ptObject);
    return *mpChildren;
}

// This node itself counts as one.
template<typename T>
bool tParentWatch<T>::isAncestorOf(tParentWatch const& node) const noexcept
{
    if (!hasChildren())
        return this == &node;
    tParentWatch const* at = &node;
    while (at && at != this)
        at = at->mpParent;
    return at == this;
}

template<typename T>
void tParentWatch<T>::leaveParent()
{
    if (mpParent)
        mpParent->mpChildren->erase(mpEntry);
    mpParent = nullptr;
    mpEntry = nullptr;
}

} // namespace nstd
