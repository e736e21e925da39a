#pragma once

#include "nel_core/std/cBugException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace npi {

/// An operation does not exist on this platform.
class NEL_EXPORT cUnsupportedPlatformException
    : public nstd::tExceptionLeaf<cUnsupportedPlatformException, nstd::cBugException> {
public:
    /// `operation` is what was asked for.
    explicit cUnsupportedPlatformException(nstd::cAsciiString const& operation);
    cUnsupportedPlatformException(cUnsupportedPlatformException const&) = default;
    cUnsupportedPlatformException(cUnsupportedPlatformException&&) = default;
    ~cUnsupportedPlatformException() override;
    cUnsupportedPlatformException& operator=(cUnsupportedPlatformException other) noexcept;
    void swap(cUnsupportedPlatformException& other) noexcept;

    /// The operation that was asked for.
    nstd::cAsciiString const& operation() const { return msOperation; }

private:
    nstd::cAsciiString msOperation;
};

} // namespace npi
