#pragma once

#include "nel_core/export.h"

namespace nstd {

/// The control block that all handles and watches of one shared object have in common. It lives on the
/// heap until its last holder is gone, and may outlive the object. Not synchronised.
class NEL_EXPORT tSharedObjectData {
public:
    /// One reference and one holder; an owner deletes the object when the last reference goes.
    explicit tSharedObjectData(bool owner) noexcept : mbOwner(owner) { }

    tSharedObjectData(tSharedObjectData const&) = delete;
    tSharedObjectData& operator=(tSharedObjectData const&) = delete;

    /// True while the object is there; once dead a block never revives.
    bool isAlive() const noexcept { return miReferences != 0; }
    bool isOwner() const noexcept { return mbOwner; }
    /// The number of handles on the living object, 0 once it is gone.
    unsigned int refCount() const noexcept { return miReferences; }
    /// The number of handles and watches.
    unsigned int holderCount() const noexcept { return miHolders; }

    void addHolder() noexcept { ++miHolders; }
    /// Counts a further handle; on a dead block it is a holder only.
    void addHandle() noexcept
    {
        ++miHolders;
        if (miReferences != 0)
            ++miReferences;
    }
    /// Gives a reference back. True when it was the last one of an owned object, which the caller deletes.
    [[nodiscard]] bool dropReference() noexcept
    {
        return miReferences != 0 && --miReferences == 0 && mbOwner;
    }
    /// Ends the object's life. True when it was alive and owned: then the caller deletes it.
    [[nodiscard]] bool invalidate() noexcept
    {
        bool const owned = isAlive() && mbOwner;
        miReferences = 0;
        return owned;
    }
    /// Gives a holder back. True when it was the last one, and this block is freed.
    bool dropHolder() noexcept
    {
        if (--miHolders != 0)
            return false;
        delete this;
        return true;
    }

    /// Raises cBugException: a dead or empty handle was dereferenced.
    [[noreturn]] static void throwWrongSharedObjectDereference();

private:
    ~tSharedObjectData() = default;

    bool mbOwner;
    unsigned int miReferences = 1;
    unsigned int miHolders = 1;
};

} // namespace nstd
