#pragma once

#include "nel_core/std/cBugException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace ncs {

/// An object is not among the interfaces of any component.
class NEL_EXPORT cNoPublicInterfaceException
    : public nstd::tExceptionLeaf<cNoPublicInterfaceException, nstd::cBugException> {
public:
    cNoPublicInterfaceException();
    cNoPublicInterfaceException(cNoPublicInterfaceException const&) = default;
    cNoPublicInterfaceException(cNoPublicInterfaceException&&) = default;
    ~cNoPublicInterfaceException() override;
    cNoPublicInterfaceException& operator=(cNoPublicInterfaceException other) noexcept;
};

} // namespace ncs
