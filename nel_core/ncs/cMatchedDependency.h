#pragma once

#include "nel_core/ncs/cComponentLocation.h"

namespace ncs {

/// Where the provider of a dependency is, if there is one.
class NEL_EXPORT cMatchedDependency {
public:
    /// Stores the location of the provider; the match is valid from then on.
    void set(cComponentLocation const& location);
    void invalidate() noexcept { mbValid = false; }
    bool valid() const noexcept { return mbValid; }
    /// Whether the match is valid and its location equals the other one.
    bool isAt(cComponentLocation const& location) const noexcept
    {
        return mbValid && mLocation.address() == location.address() && mLocation == location;
    }
    /// Raises cUnmatchedInterfaceException when the match is not valid.
    cComponentLocation const& location() const;

private:
    cComponentLocation mLocation; ///< at first this process, with an address that is not valid
    bool mbValid = false;
};

} // namespace ncs
