#pragma once

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nrmi {

/// A signal that insists on a slot was emitted without one.
class NEL_EXPORT cUnconnectedSignalException
    : public nstd::tExceptionLeaf<cUnconnectedSignalException, nstd::cRuntimeException> {
public:
    cUnconnectedSignalException();
    cUnconnectedSignalException(cUnconnectedSignalException const&) = default;
    cUnconnectedSignalException(cUnconnectedSignalException&&) = default;
    ~cUnconnectedSignalException() override;
    cUnconnectedSignalException& operator=(cUnconnectedSignalException other) noexcept;
};

} // namespace nrmi
