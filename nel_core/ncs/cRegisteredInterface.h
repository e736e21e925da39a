#pragma once

#include "nel_core/ncs/cAbstractInterface.h"
#include "nel_core/std/tAutoPtr.h"

namespace ncs {

/// A provider's record of one interface, which it may own.
class NEL_EXPORT cRegisteredInterface {
public:
    /// The interface stays its owner's.
    explicit cRegisteredInterface(cAbstractInterface& interface) noexcept;
    /// Takes the interface over and deletes it with the record.
    explicit cRegisteredInterface(nstd::tAutoPtr<cAbstractInterface> interface) noexcept;
    cRegisteredInterface(cRegisteredInterface const&) = delete;
    cRegisteredInterface& operator=(cRegisteredInterface const&) = delete;
    ~cRegisteredInterface();

    cAbstractInterface* interface() const noexcept { return mpInterface; }
    /// Whether the interface is deleted with the record.
    bool isOwner() const noexcept { return mbOwned; }
    /// Whether both are records of the same interface.
    bool operator==(cRegisteredInterface const& other) const noexcept
    {
        return mpInterface == other.mpInterface;
    }

private:
    cAbstractInterface* mpInterface;
    bool mbOwned;
};

} // namespace ncs
