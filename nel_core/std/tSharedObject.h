#pragma once

#include "nel_core/std/piAssert.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tSharedObjectData.h"

namespace nstd {

/// A counted handle on an object that several holders share.
///
/// The object is deleted through its virtual destructor when the last handle goes, unless it was only
/// lent by reference. Its life can also be ended early: every other handle sees a dead object then.
/// Two pointers wide; a copy is two increments. Not synchronised.
template<typename T>
class tSharedObject {
public:
    /// An empty handle.
    tSharedObject() noexcept = default;
    /// Owns `object`, which is deleted when this fails; null gives an empty handle.
    explicit tSharedObject(T* object) : tSharedObject(tAutoPtr<T>(object)) { }
    /// Shares an object that stays its caller's; end the handles' view of it with invalidateObject().
    explicit tSharedObject(T& object) : mpData(new tSharedObjectData(false)), mpObject(&object) { }
    /// Takes the object out of `p`, which keeps and deletes it when this fails. An array is refused
    /// (assertion); a pointer that is not owned is shared without ownership.
    tSharedObject(tAutoPtr<T> p) : mpData(createData(p)), mpObject(p.release()) { }
    /// Attaches to an existing block; null or dead, it gives an empty handle.
    tSharedObject(tSharedObjectData* data, T* object) noexcept
    {
        if (!data || !data->isAlive())
            return;
        data->addHandle();
        mpData = data;
        mpObject = object;
    }
    tSharedObject(tSharedObject const& other) noexcept : mpData(other.mpData), mpObject(other.mpObject)
    {
        ref();
    }
    tSharedObject(tSharedObject&& other) noexcept { swap(other); }
    ~tSharedObject() { unref(); }

    /// The assignments hold the new content before they drop the old.
    tSharedObject& operator=(tSharedObject const& other)
    {
        tSharedObject(other).swap(*this);
        return *this;
    }
    tSharedObject& operator=(tSharedObject&& other)
    {
        tSharedObject(static_cast<tSharedObject&&>(other)).swap(*this);
        return *this;
    }
    tSharedObject& operator=(T& object)
    {
        tSharedObject(object).swap(*this);
        return *this;
    }
    /// Owns `object` instead of the old content; an object that this handle owns already stays as it is.
    void reset(T* object)
    {
        if (!object || object != get() || !mpData->isOwner())
            tSharedObject(object).swap(*this);
    }
    /// Exchanges the contents; no count changes.
    void swap(tSharedObject& other) noexcept
    {
        tSharedObjectData* const data = mpData;
        T* const object = mpObject;
        mpData = other.mpData;
        mpObject = other.mpObject;
        other.mpData = data;
        other.mpObject = object;
    }

    /// Counts this handle once more; balance it with one unref().
    void ref() const noexcept
    {
        if (mpData)
            mpData->addHandle();
    }
    /// Gives one count back: the last reference deletes an owned object, the last holder frees the block.
    void unref()
    {
        tSharedObjectData* const data = mpData;
        if (!data)
            return;
        // The object goes first: its destructor may drop watches, and our holder keeps the block.
        if (data->dropReference())
            deleteObject();
        if (data->dropHolder())
            mpData = nullptr;
    }
    /// Ends the object's life while handles exist: an owned object is deleted now, and all handles and
    /// watches find it dead. Nothing happens on a dead or empty handle.
    void invalidateObject()
    {
        if (mpData && mpData->invalidate())
            deleteObject();
    }

    /// The object, null when it is gone.
    T* get() const noexcept { return null() ? nullptr : mpObject; }
    T* operator->() const noexcept { return get(); }
    /// The object; raises cBugException when it is gone.
    T& operator*() const
    {
        if (null())
            tSharedObjectData::throwWrongSharedObjectDereference();
        return *mpObject;
    }
    /// True when the handle is empty or its object is gone.
    bool null() const noexcept { return !mpData || !mpData->isAlive(); }
    explicit operator bool() const noexcept { return !null(); }
    /// True when this is the only handle on a living object.
    bool unique() const noexcept { return refCount() == 1; }
    /// The number of handles on the living object, otherwise 0.
    unsigned int refCount() const noexcept { return mpData ? mpData->refCount() : 0; }

    /// Two handles are equal when they share a living object, or when both have none.
    bool operator==(tSharedObject const& other) const noexcept { return get() == other.get(); }
    bool operator!=(tSharedObject const& other) const noexcept { return !(*this == other); }
    /// Orders by life only: a handle without object comes before one with a living object.
    bool operator<(tSharedObject const& other) const noexcept { return null() && !other.null(); }
    bool operator>(tSharedObject const& other) const noexcept { return other < *this; }

private:
    template<typename U>
    friend class tSharedObjectWatch;

    static tSharedObjectData* createData(tAutoPtr<T> const& p)
    {
        NEL_ASSERT(p.pointerType() != 1);
        return p ? new tSharedObjectData(p.pointerType() == tAutoPtrType::ptObject) : nullptr;
    }
    // Not inline: g++ would take it that an object lent from the stack is deleted, and warn.
    [[gnu::noinline]] void deleteObject()
    {
        static_assert(sizeof(T) > 0, "include the header of the type that the handle shares");
        T* const object = mpObject;
        mpObject = nullptr;
        delete object;
    }

    tSharedObjectData* mpData = nullptr; ///< one holder count is ours; null when empty
    T* mpObject = nullptr;               ///< dangling once the block is dead
};

} // namespace nstd
