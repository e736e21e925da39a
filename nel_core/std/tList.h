#pragma once

#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tConstIterator.h"
#include "nel_core/std/tIterator.h"
#include "nel_core/std/tListNode.h"

namespace nstd {

/// A doubly linked list between two sentinel nodes, which lets its elements be erased while it is walked.
///
/// An iterator's eraseLater() only marks its node; the node stays linked, so that every iterator stays valid,
/// until purge() removes all marked nodes at once. Nodes never move: an element keeps its address. Whether an
/// iterator belongs to this list is not checked. Arguments may be the list itself or its elements. When an
/// element's copy fails, nothing has changed.
template<typename T>
class tList {
public:
    /// A position in a list: a node, a sentinel, or nothing.
    template<typename N>
    class tListItNode {
    public:
        tListItNode() noexcept = default;
        explicit tListItNode(N* node) noexcept : mpNode(node) { }
        bool operator==(tListItNode const& other) const noexcept { return mpNode == other.mpNode; }
        bool next() noexcept { return moveTo(mpNode ? mpNode->next() : nullptr); }
        bool previous() noexcept { return moveTo(mpNode ? mpNode->previous() : nullptr); }
        T* element() const noexcept
        {
            auto* const found = mpNode ? mpNode->linkedElement() : nullptr;
            return found ? &found->element() : nullptr;
        }
        N* node() const noexcept { return mpNode; }
        bool setEraseLater(bool mark) const noexcept
        {
            if (mpNode)
                mpNode->setEraseLater(mark);
            return mpNode != nullptr;
        }
        bool isEraseLater() const noexcept { return mpNode && mpNode->isEraseLater(); }

    private:
        bool moveTo(N* node) noexcept
        {
            if (node)
                mpNode = node;
            return node != nullptr;
        }

        N* mpNode = nullptr;
    };

    /// The order of insertSorted(), which is that of the element type.
    struct cElementCompare {
        static bool isSmaller(T const& a, T const& b) { return a < b; }
        static bool isGreater(T const& a, T const& b) { return b < a; }
    };

    using nodeType = tListNodeBaseType<T>;
    using elementNodeType = tListElementNodeType<T>;
    using position = tIteratorBase<T, tListItNode<nodeType>>; ///< the base of both iterators
    using iterator = tIterator<T, tListItNode<nodeType>>;
    using const_iterator = tConstIterator<T, tListItNode<nodeType>>;

    /// An empty list; its sentinels take one allocation.
    tList() : mpHead(new tListHeadNodeType<T>), mpTail(&mpHead->tail()) { }
    /// Copies every element into a new node, without marks.
    tList(tList const& other);
    /// Deletes all nodes; what overrides beforeNodeDestroy() calls clear() in its own destructor.
    virtual ~tList() { delete mpHead; }

    /// Called for every element node just before it is deleted; it is out of the list by then.
    virtual void beforeNodeDestroy(elementNodeType&) const { }

    /// Copies every element, without marks, before the old ones go.
    tList& operator=(tList const& other);
    /// Exchanges the nodes, the sentinels included; iterators go with them.
    void swap(tList& other) noexcept;

    /// Appends a copy of `value` and returns the new element.
    T& append(T const& value) { return link(*mpTail, value); }
    T& push_back(T const& value) { return append(value); }
    /// Puts a copy of `value` before all elements and returns it.
    T& push_front(T const& value) { return link(*mpHead->next(), value); }
    /// Appends copies of all elements of `other`.
    void append_net(tList const& other) { linkCopies(*mpTail, other); }
    /// Puts a copy of `value` before `at` and returns it; raises out-of-bounds when `at` has no node or
    /// stands before the first element.
    T& insert(position const& at, T const& value) { return link(requirePlace(at, "insert(..)"), value); }
    /// Puts copies of all elements of `other` before `at`; raises as the other insert() does.
    void insert(position const& at, tList const& other) { linkCopies(requirePlace(at, "insert(..)"), other); }
    /// Puts a copy of `value` before the first greater element (before the first smaller one when
    /// `ascending` is false), at the end when there is none, and returns it.
    T& insertSorted(T const& value, bool ascending);
    /// Inserts copies of all elements of `other`, one after the other, in the same way.
    void insertSorted(tList const& other, bool ascending);
    /// Moves all nodes of `other` before `at`, with their marks and without copying; raises out-of-bounds
    /// as insert() does. A list takes nothing from itself.
    void take(position const& at, tList& other);

    /// Deletes the node at `at` and returns the iterator on the following one; raises out-of-bounds when no
    /// element is there.
    iterator erase(position const& at);
    /// Deletes `erased`, an element node of this list; a sentinel or null is ignored.
    void erase(nodeType* erased);
    /// Lets the nodes at two positions swap places; the marks stay where they are. Raises out-of-bounds
    /// when one of them is no element.
    void exchange(position const& first, position const& second);
    /// Deletes every node that is marked. What an element's destructor marks stays for the next purge.
    void purge();
    /// Deletes all element nodes.
    void clear();

    bool empty() const noexcept { return mpHead->next() == mpTail; }
    /// The number of elements; walks the list.
    unsigned int size() const noexcept;

    iterator begin() { return iterator(firstPlace()); }
    const_iterator begin() const { return const_iterator(firstPlace()); }
    iterator end() { return iterator(tListItNode<nodeType>(mpTail)); }
    const_iterator end() const { return const_iterator(tListItNode<nodeType>(mpTail)); }
    /// Stands before the first element; the first step reaches it.
    iterator start() { return iterator(tListItNode<nodeType>(mpHead)); }
    const_iterator start() const { return const_iterator(tListItNode<nodeType>(mpHead)); }
    /// Stands on the last element; in an empty list, before the first.
    iterator last() { return iterator(lastPlace()); }
    const_iterator last() const { return const_iterator(lastPlace()); }

private:
    static T& link(nodeType& where, T const& value);
    static void linkCopies(nodeType& where, tList const& other);
    static nodeType& requirePlace(position const& at, char const* operation);
    static elementNodeType& requireElement(position const& at, char const* operation);
    nodeType& sortedPlace(T const& value, bool ascending) const;
    void destroy(elementNodeType& doomed) const;
    void destroyAll(tListHeadNodeType<T>& chain) const;
    tListItNode<nodeType> firstPlace() const;
    tListItNode<nodeType> lastPlace() const;

    tListHeadNodeType<T>* mpHead; ///< owned, with the tail
    nodeType* mpTail;
};

template<typename T>
tList<T>::tList(tList const& other) : tList()
{
    for (T const& value : other)
        append(value);
}

template<typename T>
tList<T>& tList<T>::operator=(tList const& other)
{
    if (this != &other)
        tList(other).swap(*this);
    return *this;
}

template<typename T>
void tList<T>::swap(tList& other) noexcept
{
    auto* const head = mpHead;
    auto* const tail = mpTail;
    mpHead = other.mpHead;
    mpTail = other.mpTail;
    other.mpHead = head;
    other.mpTail = tail;
}

template<typename T>
T& tList<T>::insertSorted(T const& value, bool ascending)
{
    return link(sortedPlace(value, ascending), value);
}

template<typename T>
void tList<T>::insertSorted(tList const& other, bool ascending)
{
    tList copy(other);
    while (!copy.empty()) {
        nodeType& moved = *copy.mpHead->next();
        nodeType& where = sortedPlace(moved.linkedElement()->element(), ascending);
        moved.unlink();
        moved.linkBefore(where);
    }
}

template<typename T>
void tList<T>::take(position const& at, tList& other)
{
    nodeType& where = requirePlace(at, "take(..)");
    if (this != &other)
        other.mpHead->spliceBefore(where);
}

template<typename T>
typename tList<T>::iterator tList<T>::erase(position const& at)
{
    elementNodeType& erased = requireElement(at, "erase(it)");
    iterator const following(tListItNode<nodeType>(erased.next()));
    destroy(erased);
    return following;
}

template<typename T>
void tList<T>::erase(nodeType* erased)
{
    if (elementNodeType* const found = erased ? erased->isElementNode() : nullptr)
        destroy(*found);
}

template<typename T>
void tList<T>::exchange(position const& first, position const& second)
{
    elementNodeType& a = requireElement(first, "exchange(..)");
    elementNodeType& b = requireElement(second, "exchange(..)");
    if (&a == &b)
        return;

    nodeType placeOfA; // takes itself out when it goes
    placeOfA.linkBefore(a);
    a.unlink();
    a.linkBefore(b);
    b.unlink();
    b.linkBefore(placeOfA);

    bool const mark = a.isEraseLater();
    a.setEraseLater(b.isEraseLater());
    b.setEraseLater(mark);
}

template<typename T>
void tList<T>::purge()
{
    // All marked nodes leave first: whatever their destructors do to the list, no walk is under way.
    tListHeadNodeType<T> marked;
    for (nodeType* at = mpHead->next(); at != mpTail;) {
        nodeType& found = *at;
        at = at->next();
        if (found.isEraseLater()) {
            found.unlink();
            found.linkBefore(marked.tail());
        }
    }
    destroyAll(marked);
}

template<typename T>
void tList<T>::clear()
{
    tListHeadNodeType<T> all;
    mpHead->spliceBefore(all.tail());
    destroyAll(all);
}

template<typename T>
unsigned int tList<T>::size() const noexcept
{
    unsigned int count = 0;
    for (nodeType const* at = mpHead->next(); at != mpTail; at = at->next())
        ++count;
    return count;
}

template<typename T>
T& tList<T>::link(nodeType& where, T const& value)
{
    auto* const created = new elementNodeType(value);
    created->linkBefore(where);
    return created->element();
}

template<typename T>
void tList<T>::linkCopies(nodeType& where, tList const& other)
{
    tList copy(other);
    copy.mpHead->spliceBefore(where);
}

template<typename T>
typename tList<T>::nodeType& tList<T>::requirePlace(position const& at, char const* operation)
{
    if (!at.node() || !at.node()->previous())
        cSTDExceptions::throwOutOfBounds("tList", operation);
    return *at.node();
}

template<typename T>
typename tList<T>::elementNodeType& tList<T>::requireElement(position const& at, char const* operation)
{
    elementNodeType* const found = at.node() ? at.node()->linkedElement() : nullptr;
    if (!found)
        cSTDExceptions::throwOutOfBounds("tList", operation);
    return *found;
}

template<typename T>
typename tList<T>::nodeType& tList<T>::sortedPlace(T const& value, bool ascending) const
{
    nodeType* at = mpHead->next();
    for (; at != mpTail; at = at->next()) {
        T const& element = at->linkedElement()->element();
        if (ascending ? cElementCompare::isGreater(element, value)
                      : cElementCompare::isSmaller(element, value))
            break;
    }
    return *at;
}

template<typename T>
void tList<T>::destroy(elementNodeType& doomed) const
{
    doomed.unlink();
    tAutoPtr<elementNodeType> const owner(&doomed);
    beforeNodeDestroy(doomed);
}

// Reads the first node anew each time: beforeNodeDestroy() and the elements may erase any other node.
template<typename T>
void tList<T>::destroyAll(tListHeadNodeType<T>& chain) const
{
    while (!chain.isAlone())
        destroy(*chain.next()->linkedElement());
}

template<typename T>
typename tList<T>::template tListItNode<typename tList<T>::nodeType> tList<T>::firstPlace() const
{
    if (!mpHead->next())
        cSTDExceptions::throwOutOfBounds("tList", "cIteratorBase::operator++()");
    return tListItNode<nodeType>(mpHead->next());
}

template<typename T>
typename tList<T>::template tListItNode<typename tList<T>::nodeType> tList<T>::lastPlace() const
{
    if (!mpTail->previous())
        cSTDExceptions::throwOutOfBounds("tList", "cIteratorBase::operator--()");
    return tListItNode<nodeType>(mpTail->previous());
}

} // namespace nstd
