#pragma once

#include "nel_core/std/tSharedObject.h"

namespace nstd {

/// Observes a shared object without keeping it alive.
///
/// A watch keeps the control block, not the object: after the object's end lock() gives an empty handle.
/// Two pointers wide; a copy is one increment. Not synchronised.
template<typename T>
class tSharedObjectWatch {
public:
    /// Watches nothing.
    tSharedObjectWatch() noexcept = default;
    /// Watches the object of `handle`.
    tSharedObjectWatch(tSharedObject<T> const& handle) noexcept
        : tSharedObjectWatch(handle.mpData, handle.mpObject)
    {
    }
    tSharedObjectWatch(tSharedObjectWatch const& other) noexcept
        : tSharedObjectWatch(other.mpData, other.mpObject)
    {
    }
    ~tSharedObjectWatch()
    {
        if (mpData)
            mpData->dropHolder();
    }
    tSharedObjectWatch& operator=(tSharedObjectWatch const& other) noexcept
    {
        tSharedObjectWatch(other).swap(*this);
        return *this;
    }
    void swap(tSharedObjectWatch& other) noexcept
    {
        tSharedObjectData* const data = mpData;
        T* const object = mpObject;
        mpData = other.mpData;
        mpObject = other.mpObject;
        other.mpData = data;
        other.mpObject = object;
    }

    /// A counted handle on the object, empty once the object is gone.
    [[nodiscard]] tSharedObject<T> lock() const noexcept { return tSharedObject<T>(mpData, mpObject); }

private:
    tSharedObjectWatch(tSharedObjectData* data, T* object) noexcept : mpData(data), mpObject(object)
    {
        if (data)
            data->addHolder();
    }

    tSharedObjectData* mpData = nullptr; ///< one holder count is ours; null when watching nothing
    T* mpObject = nullptr;               ///< not owned; dangling once the block is dead
};

} // namespace nstd
