#pragma once

#include "nel_core/std/tList.h"

namespace nstd {

/// A list of pointers that may own what they point to. A new one, and every copy, only refers. T must be
/// complete where the list is constructed or destroyed.
template<typename T>
class tPtrList : public tList<T*> {
public:
    using typename tList<T*>::elementNodeType;
    using typename tList<T*>::position;

    /// What happens to a pointee whose node is deleted; any other value refers.
    enum GuardMode : unsigned int {
        gmRefer = 0,    ///< nothing
        gmOwn = 1,      ///< deleted through its virtual destructor
        gmOwnArray = 2, ///< deleted with delete[]
    };

    tPtrList() = default;
    /// The same pointers, referred to: `other` stays their owner.
    tPtrList(tPtrList const& other) : tList<T*>(other) { }
    ~tPtrList() override { this->clear(); }

    /// Disposes of the old pointees by the old mode; then holds the same pointers as `other` and refers.
    tPtrList& operator=(tPtrList const& other);
    /// Disposes of the old pointees, then takes the pointers of `other` and its mode. `other` keeps the
    /// pointers, but refers from now on.
    void moveFrom(tPtrList& other);
    /// Exchanges everything, the modes included; swap() leaves them.
    void swapWithOwnership(tPtrList& other) noexcept;

    using tList<T*>::append;
    /// Appends the pointers of `other`.
    void append(tPtrList const& other) { this->append_net(other); }
    /// Puts the pointer of `p` before `at` and then releases it from `p`. Raises as insert() does; `p` keeps
    /// its object then.
    void guardedInsert(position const& at, tAutoPtr<T>& p);

    using tList<T*>::take;
    /// Deletes the node at `at` and hands its object or array over. Raises out-of-bounds when the list only
    /// refers, or when no element is there.
    [[nodiscard]] tAutoPtr<T> take(position const& at);

    /// Sets what happens to the pointees from now on.
    void setGuardMode(GuardMode mode) noexcept { mGuardMode = mode; }
    GuardMode guardMode() const noexcept { return mGuardMode; }

    /// Disposes of the pointee as the mode says and nulls the pointer.
    void beforeNodeDestroy(elementNodeType& doomed) const override;

private:
    bool isOwner() const noexcept { return mGuardMode == gmOwn || mGuardMode == gmOwnArray; }
    tAutoPtrType::PointerType pointerType() const noexcept;

    GuardMode mGuardMode = gmRefer;
};

template<typename T>
tPtrList<T>& tPtrList<T>::operator=(tPtrList const& other)
{
    if (this != &other) {
        tPtrList copy(other);
        swapWithOwnership(copy);
    }
    return *this;
}

template<typename T>
void tPtrList<T>::moveFrom(tPtrList& other)
{
    if (this == &other)
        return;
    tPtrList copy(other);
    copy.mGuardMode = other.mGuardMode;
    other.mGuardMode = gmRefer;
    swapWithOwnership(copy);
}

template<typename T>
void tPtrList<T>::swapWithOwnership(tPtrList& other) noexcept
{
    this->swap(other);
    GuardMode const mode = mGuardMode;
    mGuardMode = other.mGuardMode;
    other.mGuardMode = mode;
}

template<typename T>
void tPtrList<T>::guardedInsert(position const& at, tAutoPtr<T>& p)
{
    this->insert(at, p.get());
    static_cast<void>(p.release());
}

template<typename T>
tAutoPtr<T> tPtrList<T>::take(position const& at)
{
    if (!isOwner())
        cSTDExceptions::throwOutOfBounds("tList", "take()");
    if (!at.node() || !at.node()->linkedElement())
        cSTDExceptions::throwOutOfBounds("tList", "tIterator::operator*()");

    T*& element = at.node()->linkedElement()->element();
    tAutoPtr<T> taken(element, pointerType());
    element = nullptr; // the node goes without its pointee
    this->erase(at);
    return taken;
}

template<typename T>
void tPtrList<T>::beforeNodeDestroy(elementNodeType& doomed) const
{
    tAutoPtr<T> const disposed(doomed.element(), pointerType());
    doomed.element() = nullptr;
}

template<typename T>
tAutoPtrType::PointerType tPtrList<T>::pointerType() const noexcept
{
    if (mGuardMode == gmOwnArray)
        return tAutoPtrType::ptArray;
    return mGuardMode == gmOwn ? tAutoPtrType::ptObject : tAutoPtrType::ptUnowned;
}

} // namespace nstd
