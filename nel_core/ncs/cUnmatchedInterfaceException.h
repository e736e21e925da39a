#pragma once

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace ncs {

/// An interface dependency has no provider yet.
class NEL_EXPORT cUnmatchedInterfaceException
    : public nstd::tExceptionLeaf<cUnmatchedInterfaceException, nstd::cRuntimeException> {
public:
    cUnmatchedInterfaceException();
    cUnmatchedInterfaceException(cUnmatchedInterfaceException const&) = default;
    cUnmatchedInterfaceException(cUnmatchedInterfaceException&&) = default;
    ~cUnmatchedInterfaceException() override;
    cUnmatchedInterfaceException& operator=(cUnmatchedInterfaceException other) noexcept;
};

} // namespace ncs
