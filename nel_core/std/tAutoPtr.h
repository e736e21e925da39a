#pragma once

#include "nel_core/std/fwd.h"
#include "nel_core/std/tAutoPtrType.h"

namespace nstd {

/// Ownership on its way from one auto pointer to another. It owns nothing itself: one that is dropped
/// leaks the pointer.
template<typename T>
struct tAutoPtrRef {
    T* mpPtr;
    tAutoPtrType::PointerType mType;
};

/// The sole owner of a heap object or array, with the way of disposal chosen at run time.
///
/// Copying transfers: the source is empty afterwards and keeps its type. T may be incomplete where an auto
/// pointer is declared, but not where it is constructed, used or destroyed.
template<typename T>
class tAutoPtr {
public:
    using PointerType = tAutoPtrType::PointerType;

    /// Holds nothing.
    tAutoPtr() noexcept = default;
    /// Takes `pointer` over, to be disposed of as `type` says.
    explicit tAutoPtr(T* pointer, PointerType type = tAutoPtrType::ptObject) noexcept
        : mpPtr(pointer),
          mType(type)
    {
    }
    /// Takes pointer and type out of `other`.
    tAutoPtr(tAutoPtr& other) noexcept : mpPtr(other.release()), mType(other.mType) { }
    tAutoPtr(tAutoPtr&& other) noexcept : mpPtr(other.release()), mType(other.mType) { }
    tAutoPtr(tAutoPtrRef<T> const& ref) noexcept : mpPtr(ref.mpPtr), mType(ref.mType) { }
    virtual ~tAutoPtr() { tAutoPtr::reinit(nullptr, tAutoPtrType::ptObject); }

    /// Re-initialises this one with what `other` releases.
    tAutoPtr& operator=(tAutoPtr& other)
    {
        reinit(other.release(), other.mType);
        return *this;
    }
    tAutoPtr& operator=(tAutoPtr&& other) { return *this = other; }
    /// Does nothing when the pointer of `ref` is the one held.
    tAutoPtr& operator=(tAutoPtrRef<T> const& ref)
    {
        if (ref.mpPtr != mpPtr)
            reinit(ref.mpPtr, ref.mType);
        return *this;
    }
    /// Releases the pointer into a plain record.
    operator tAutoPtrRef<T>() noexcept { return tAutoPtrRef<T>{release(), mType}; }

    /// Holds `pointer` with `type` from now on and disposes of the former one, which is already replaced
    /// when its destructor runs. With the pointer that is held only the type changes.
    virtual void reinit(T* pointer, PointerType type)
    {
        T* const oldPtr = mpPtr;
        PointerType const oldType = mType;
        mpPtr = pointer;
        mType = type;
        if (oldPtr && oldPtr != pointer)
            dispose(oldPtr, oldType);
    }
    /// The same as reinit().
    void reset(T* pointer, PointerType type) { reinit(pointer, type); }
    /// Gives the pointer away; the handle is empty afterwards and keeps its type.
    [[nodiscard]] T* release() noexcept
    {
        T* const pointer = mpPtr;
        mpPtr = nullptr;
        return pointer;
    }
    /// Exchanges pointers and types.
    void swap(tAutoPtr& other) noexcept
    {
        T* const pointer = mpPtr;
        PointerType const type = mType;
        mpPtr = other.mpPtr;
        mType = other.mType;
        other.mpPtr = pointer;
        other.mType = type;
    }

    /// The pointer, null when empty; it stays owned. The operators do not check it.
    T* get() const noexcept { return mpPtr; }
    T* operator->() const noexcept { return mpPtr; }
    T& operator*() const noexcept { return *mpPtr; }
    /// Element `index` of an array pointer; no check.
    T& operator[](unsigned int index) const noexcept { return mpPtr[index]; }
    explicit operator bool() const noexcept { return mpPtr != nullptr; }
    PointerType pointerType() const noexcept { return mType; }

private:
    static void dispose(T* pointer, PointerType type)
    {
        static_assert(sizeof(T) > 0, "include the header of the type that the auto pointer owns");
        if (type == tAutoPtrType::ptObject)
            delete pointer;
        else if (type == tAutoPtrType::ptArray)
            delete[] pointer;
    }

    T* mpPtr = nullptr; ///< owned unless the type says otherwise
    PointerType mType = tAutoPtrType::ptObject;
};

} // namespace nstd
