#pragma once

#include "nel_core/std/tVector.h"

namespace nstd {

/// A vector of pointers that may own what they point to. A new one, and every copy, only refers. T must be
/// complete where the vector is constructed or destroyed.
template<typename T>
class tPtrVector : public tVector<T*> {
public:
    /// What happens to a pointee whose pointer is removed; any other value refers.
    enum GuardMode : unsigned int {
        gmOwn = 0,      ///< deleted through its virtual destructor
        gmOwnArray = 1, ///< deleted with delete[]
        gmRefer = 2,    ///< nothing
    };

    tPtrVector() noexcept = default;
    /// The same pointers, referred to: `other` stays their owner.
    tPtrVector(tPtrVector const& other) : tVector<T*>(other) { }
    ~tPtrVector() override { this->destroyArray(true); }

    /// Disposes of the old pointees by the old mode; then holds the same pointers as `other` and refers.
    tPtrVector& operator=(tPtrVector const& other);
    /// Disposes of the old pointees, then takes the pointers of `other` and its mode. `other` keeps the
    /// pointers, but refers from now on.
    void moveFrom(tPtrVector& other);
    /// Exchanges everything, the modes included; swap() leaves them.
    void swapWithOwnership(tPtrVector& other) noexcept;
    /// When this vector owns objects: removes pointer `index` and hands its object over; raises
    /// out-of-range 0 when there is none. In any other mode nothing happens and the result is empty.
    [[nodiscard]] tAutoPtr<T> take(unsigned int index);

    /// Sets what happens to the pointees from now on.
    void setGuardMode(GuardMode mode) noexcept { mGuardMode = mode; }
    GuardMode guardMode() const noexcept { return mGuardMode; }

    /// Disposes of the pointee as the mode says and nulls the pointer.
    void notifyElementRemoved(T*& element) override;

private:
    GuardMode mGuardMode = gmRefer;
};

template<typename T>
tPtrVector<T>& tPtrVector<T>::operator=(tPtrVector const& other)
{
    if (this != &other) {
        tPtrVector copy(other);
        swapWithOwnership(copy);
    }
    return *this;
}

template<typename T>
void tPtrVector<T>::moveFrom(tPtrVector& other)
{
    if (this == &other)
        return;
    tPtrVector copy(other);
    copy.mGuardMode = other.mGuardMode;
    other.mGuardMode = gmRefer;
    swapWithOwnership(copy);
}

template<typename T>
void tPtrVector<T>::swapWithOwnership(tPtrVector& other) noexcept
{
    this->swap(other);
    GuardMode const mode = mGuardMode;
    mGuardMode = other.mGuardMode;
    other.mGuardMode = mode;
}

template<typename T>
tAutoPtr<T> tPtrVector<T>::take(unsigned int index)
{
    if (mGuardMode != gmOwn)
        return tAutoPtr<T>();
    tAutoPtr<T> taken(this->at(index));
    this->remove(index, tVector<T*>::rnSuppress);
    return taken;
}

template<typename T>
void tPtrVector<T>::notifyElementRemoved(T*& element)
{
    auto const type = static_cast<tAutoPtrType::PointerType>(mGuardMode);
    tAutoPtr<T> const disposed(element, type);
    element = nullptr;
}

} // namespace nstd
