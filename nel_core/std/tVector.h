#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tConstIterator.h"
#include "nel_core/std/tIterator.h"

namespace nstd {

/// An indexed sequence whose elements live in heap cells of their own.
///
/// The pool holds only pointers to the cells, so inserting and removing move pointers and an element keeps
/// its address for its whole life. The pool grows linearly, by a settable number of cells; an empty vector
/// has none. Arguments may be elements of the same vector. When an element's copy fails, nothing has changed.
template<typename T>
class tVector {
public:
    /// Whether a removal tells notifyElementRemoved(); any value but rnSuppress does.
    enum RemoveNotification : unsigned int { rnNotify = 0, rnSuppress = 1 };

    /// A position in a vector: an index, or the place before the first element.
    template<typename V>
    class tVectorNode {
    public:
        tVectorNode() noexcept = default;
        tVectorNode(V& vector, unsigned int index, bool start) noexcept
            : mpVector(&vector),
              miIndex(index),
              mbStart(start)
        {
        }
        bool operator==(tVectorNode const& other) const noexcept
        {
            return mpVector == other.mpVector && miIndex == other.miIndex && mbStart == other.mbStart;
        }
        bool next() noexcept;
        bool previous() noexcept;
        T* element() const noexcept;
        /// The element's cell.
        T* node() const noexcept { return element(); }
        /// A vector has no marks: never done.
        bool setEraseLater(bool) const noexcept { return false; }
        bool isEraseLater() const noexcept { return false; }

    private:
        V* mpVector = nullptr;
        unsigned int miIndex = 0;
        bool mbStart = false; ///< before the first element; the index is 0 then
    };

    using iterator = tIterator<T, tVectorNode<tVector const>>;
    using const_iterator = tConstIterator<T, tVectorNode<tVector const>>;

    /// Empty, without a pool.
    tVector() noexcept = default;
    /// Copies every element into a new cell.
    tVector(tVector const& other);
    /// Removes the elements; what overrides notifyElementRemoved() calls destroyArray() in its own
    /// destructor.
    virtual ~tVector() { freeCells(); }

    /// Told of every element that is removed, before its cell is destroyed; the element has left the
    /// vector by then.
    virtual void notifyElementRemoved(T&) { }

    /// Copies every element before the old ones go, without notification.
    tVector& operator=(tVector const& other);
    /// Exchanges everything, the growth steps included.
    void swap(tVector& other) noexcept;

    /// Element `index`, unchecked.
    T& operator[](unsigned int index) noexcept { return *mpPool[index]; }
    T const& operator[](unsigned int index) const noexcept { return *mpPool[index]; }
    /// Element `index`; raises out-of-range 0 when there is none.
    T& at(unsigned int index) { return *mpPool[requireIndex(index, "at")]; }
    T const& at(unsigned int index) const { return *mpPool[requireIndex(index, "at")]; }

    /// Appends a copy of `value` and returns the new element.
    T& append(T const& value) { return addCopy(miCount, value, "append"); }
    T& push_back(T const& value) { return append(value); }
    /// Appends copies of all elements of `other`.
    void append(tVector const& other) { addCopies(miCount, other, "append"); }
    /// Puts a copy of `value` before all elements and returns it.
    T& push_front(T const& value) { return addCopy(0, value, "push_front"); }
    /// Puts a copy of `value` before element `index` and returns it; raises out-of-range 0 beyond the end.
    T& insert(unsigned int index, T const& value)
    {
        return addCopy(requireInsertIndex(index), value, "insert");
    }
    /// Puts copies of all elements of `other` before element `index`; raises as the other insert() does.
    void insert(unsigned int index, tVector const& other)
    {
        addCopies(requireInsertIndex(index), other, "insert");
    }
    /// Puts a copy of `value` at `index` and drops the last element, without notification, so that the
    /// number stays. Raises out-of-range 0 when there is no element `index`.
    T& insertRemoveLast(unsigned int index, T const& value);
    /// Removes element `index`; raises out-of-range 1 when there is none.
    void remove(unsigned int index, RemoveNotification notification = rnNotify);
    /// Removes all elements in index order, with notification; a pool of one growth step remains. Elements
    /// that a notification adds stay.
    void clear();
    /// Removes all elements in index order, with notification when `notify` is set, and frees the pool.
    void destroyArray(bool notify);
    /// Rebuilds the vector of copies of its first `count` elements, followed by default-constructed ones up
    /// to `count`. The former cells go without notification.
    void resize(unsigned int count);
    void setSize(unsigned int count) { resize(count); }

    /// Makes room for `count` cells, at least for the elements there are. The pool is kept when it is large
    /// enough, unless `exact` asks for the size that getRequiredPoolSize() tells.
    void resizePool(unsigned int count, bool exact);
    /// Shrinks the pool to what the elements need.
    void optimizeMemory() { resizePool(miCount, true); }
    /// `iNewSize` rounded up to whole growth steps, at least one; raises an assertion when that wraps.
    unsigned int getRequiredPoolSize(unsigned int iNewSize) const;
    /// The growth step of the pool in cells; 0 counts as 1.
    void setNumElementsAhead(unsigned int count) noexcept { miElementsAhead = count != 0 ? count : 1; }
    unsigned int numElementsAhead() const noexcept { return miElementsAhead; }
    /// Sets the number of elements, for those who fill the pool themselves. Cells beyond it are freed
    /// without notification; cells gained are what the pool holds there, null unless it was filled. Raises
    /// out-of-bounds when the pool is smaller.
    void setNumElements(unsigned int count);

    unsigned int size() const noexcept { return miCount; }
    bool empty() const noexcept { return miCount == 0; }
    /// The number of cells that the pool has room for.
    unsigned int poolSize() const noexcept { return miPoolSize; }
    /// The pool: `poolSize()` pointers to cells, null beyond the elements. Valid until the vector changes.
    T** getVector() const noexcept { return mpPool; }

    /// Equal are vectors of the same number of equal elements.
    bool operator==(tVector const& other) const;
    bool operator!=(tVector const& other) const { return !(*this == other); }

    iterator begin() { return iterator({*this, 0, false}); }
    iterator end() { return iterator({*this, miCount, false}); }
    const_iterator begin() const { return const_iterator({*this, 0, false}); }
    const_iterator end() const { return const_iterator({*this, miCount, false}); }
    /// Stands before the first element; the first step reaches it.
    iterator start() { return iterator({*this, 0, true}); }
    const_iterator start() const { return const_iterator({*this, 0, true}); }

private:
    static T* copyOf(T const* cell) { return cell ? new T(*cell) : nullptr; }

    unsigned int lastIndex() const noexcept { return miCount != 0 ? miCount - 1 : 0; }
    unsigned int requireIndex(unsigned int index, char const* operation) const;
    unsigned int requireInsertIndex(unsigned int index) const;
    void makeRoom(unsigned int count, char const* operation);
    T& addCopy(unsigned int index, T const& value, char const* operation);
    void addCopies(unsigned int index, tVector const& other, char const* operation);
    void appendCopies(T* const* cells, unsigned int count);
    void moveTailUp(unsigned int index, unsigned int count) noexcept;
    void truncateCells(unsigned int count) noexcept;
    void swapCells(tVector& other) noexcept;
    void removeAll(tVector& removed, bool notify);
    void freeCells() noexcept;

    T** mpPool = nullptr;        ///< owned cells; null beyond the elements
    unsigned int miPoolSize = 0; ///< in cells
    unsigned int miCount = 0;    ///< elements, never more than the pool has cells
    unsigned int miElementsAhead = 10;
};

template<typename T>
template<typename V>
bool tVector<T>::tVectorNode<V>::next() noexcept
{
    if (!mpVector || (!mbStart && miIndex >= mpVector->size()))
        return false;
    miIndex += mbStart ? 0 : 1;
    mbStart = false;
    return true;
}

template<typename T>
template<typename V>
bool tVector<T>::tVectorNode<V>::previous() noexcept
{
    if (!mpVector || mbStart)
        return false;
    mbStart = miIndex == 0;
    miIndex -= mbStart ? 0 : 1;
    return true;
}

template<typename T>
template<typename V>
T* tVector<T>::tVectorNode<V>::element() const noexcept
{
    return mpVector && !mbStart && miIndex < mpVector->size() ? mpVector->getVector()[miIndex] : nullptr;
}

template<typename T>
tVector<T>::tVector(tVector const& other) : tVector()
{
    miElementsAhead = other.miElementsAhead;
    if (other.miCount == 0)
        return;
    resizePool(other.miCount, false);
    appendCopies(other.mpPool, other.miCount);
}

template<typename T>
tVector<T>& tVector<T>::operator=(tVector const& other)
{
    if (this != &other)
        tVector(other).swap(*this);
    return *this;
}

template<typename T>
void tVector<T>::swap(tVector& other) noexcept
{
    swapCells(other);
    unsigned int const ahead = miElementsAhead;
    miElementsAhead = other.miElementsAhead;
    other.miElementsAhead = ahead;
}

template<typename T>
T& tVector<T>::insertRemoveLast(unsigned int index, T const& value)
{
    requireIndex(index, "insertSameSize");
    T* const cell = new T(value);
    tAutoPtr<T> const dropped(mpPool[miCount - 1]);
    if (index != miCount - 1)
        std::memmove(mpPool + index + 1, mpPool + index, (miCount - 1 - index) * sizeof(T*));
    mpPool[index] = cell;
    return *cell;
}

template<typename T>
void tVector<T>::remove(unsigned int index, RemoveNotification notification)
{
    if (index >= miCount)
        cSTDExceptions::throwOutOfRange("tVector", "remove", cSTDExceptions::ortValue, index, 0, miCount);

    // Out of the vector first: a notification may change it.
    tAutoPtr<T> const cell(mpPool[index]);
    --miCount;
    if (index != miCount)
        std::memmove(mpPool + index, mpPool + index + 1, (miCount - index) * sizeof(T*));
    mpPool[miCount] = nullptr;
    if (notification != rnSuppress && cell)
        notifyElementRemoved(*cell);
}

template<typename T>
void tVector<T>::clear()
{
    tVector removed;
    removeAll(removed, true);
    if (!mpPool)
        swapCells(removed);
    try {
        resizePool(miCount, true);
    } catch (std::bad_alloc const&) {
        // The pool stays as it is.
    }
}

template<typename T>
void tVector<T>::destroyArray(bool notify)
{
    tVector removed;
    removeAll(removed, notify);
}

template<typename T>
void tVector<T>::resize(unsigned int count)
{
    tVector copy(*this);
    copy.resizePool(count, false);
    while (copy.miCount < count) {
        copy.mpPool[copy.miCount] = new T();
        ++copy.miCount;
    }
    copy.truncateCells(count);
    swapCells(copy);
}

template<typename T>
void tVector<T>::resizePool(unsigned int count, bool exact)
{
    unsigned int const target = getRequiredPoolSize(count < miCount ? miCount : count);
    if (miPoolSize >= target && (!exact || miPoolSize == target))
        return;
    if (target > static_cast<std::size_t>(PTRDIFF_MAX) / sizeof(T*))
        throw std::bad_alloc();

    void* const pool = std::realloc(mpPool, target * sizeof(T*));
    if (!pool)
        throw std::bad_alloc();
    mpPool = static_cast<T**>(pool);
    if (target > miPoolSize)
        std::memset(mpPool + miPoolSize, 0, (target - miPoolSize) * sizeof(T*));
    miPoolSize = target;
}

template<typename T>
unsigned int tVector<T>::getRequiredPoolSize(unsigned int iNewSize) const
{
    unsigned int const rest = iNewSize % miElementsAhead;
    unsigned int const iRequired = rest != 0 || iNewSize == 0 ? iNewSize - rest + miElementsAhead : iNewSize;
    NEL_ASSERT(iRequired >= iNewSize);
    return iRequired;
}

template<typename T>
void tVector<T>::setNumElements(unsigned int count)
{
    if (count > miPoolSize)
        cSTDExceptions::throwOutOfBounds("tVector", "setNumElements");
    truncateCells(count);
    miCount = count;
}

template<typename T>
bool tVector<T>::operator==(tVector const& other) const
{
    if (miCount != other.miCount)
        return false;
    for (unsigned int i = 0; i < miCount; ++i)
        if (!(*mpPool[i] == *other.mpPool[i]))
            return false;
    return true;
}

template<typename T>
unsigned int tVector<T>::requireIndex(unsigned int index, char const* operation) const
{
    if (index >= miCount)
        cSTDExceptions::throwOutOfRange("tVector", operation, cSTDExceptions::ortIndex, index, 0,
                                        lastIndex());
    return index;
}

template<typename T>
unsigned int tVector<T>::requireInsertIndex(unsigned int index) const
{
    if (index > miCount)
        cSTDExceptions::throwOutOfRange("tVector", "insert", cSTDExceptions::ortIndex, index, 0, miCount);
    return index;
}

template<typename T>
void tVector<T>::makeRoom(unsigned int count, char const* operation)
{
    if (count > UINT32_MAX - miCount)
        cSTDExceptions::throwOutOfBounds("tVector", operation);
    resizePool(miCount + count, false);
}

template<typename T>
T& tVector<T>::addCopy(unsigned int index, T const& value, char const* operation)
{
    tAutoPtr<T> cell(new T(value));
    makeRoom(1, operation);
    moveTailUp(index, 1);
    mpPool[index] = cell.release();
    ++miCount;
    return *mpPool[index];
}

template<typename T>
void tVector<T>::addCopies(unsigned int index, tVector const& other, char const* operation)
{
    if (other.miCount == 0)
        return;
    tVector copies(other);
    makeRoom(copies.miCount, operation);
    moveTailUp(index, copies.miCount);
    std::memcpy(mpPool + index, copies.mpPool, copies.miCount * sizeof(T*));
    miCount += copies.miCount;
    copies.miCount = 0; // the cells are ours now
}

// Needs the room already; keeps the cells counted, so that a copy that fails leaves none behind.
template<typename T>
void tVector<T>::appendCopies(T* const* cells, unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i) {
        mpPool[miCount] = copyOf(cells[i]);
        ++miCount;
    }
}

template<typename T>
void tVector<T>::moveTailUp(unsigned int index, unsigned int count) noexcept
{
    if (index != miCount)
        std::memmove(mpPool + index + count, mpPool + index, (miCount - index) * sizeof(T*));
}

template<typename T>
void tVector<T>::truncateCells(unsigned int count) noexcept
{
    while (miCount > count) {
        T* const cell = mpPool[--miCount];
        mpPool[miCount] = nullptr;
        delete cell;
    }
}

template<typename T>
void tVector<T>::swapCells(tVector& other) noexcept
{
    T** const pool = mpPool;
    unsigned int const poolSize = miPoolSize;
    unsigned int const count = miCount;
    mpPool = other.mpPool;
    miPoolSize = other.miPoolSize;
    miCount = other.miCount;
    other.mpPool = pool;
    other.miPoolSize = poolSize;
    other.miCount = count;
}

// All elements leave at once, into `removed`: whoever is told of them finds the vector empty and may fill it.
template<typename T>
void tVector<T>::removeAll(tVector& removed, bool notify)
{
    swapCells(removed);
    for (unsigned int i = 0; i < removed.miCount; ++i) {
        tAutoPtr<T> const cell(removed.mpPool[i]);
        removed.mpPool[i] = nullptr;
        if (notify && cell)
            notifyElementRemoved(*cell);
    }
    removed.miCount = 0;
}

// Like removeAll() without a second vector, whose destructor calls this one.
template<typename T>
void tVector<T>::freeCells() noexcept
{
    T** const pool = mpPool;
    unsigned int const count = miCount;
    mpPool = nullptr;
    miPoolSize = 0;
    miCount = 0;
    for (unsigned int i = 0; i < count; ++i)
        delete pool[i];
    std::free(pool);
}

} // namespace nstd
