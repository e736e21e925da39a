#pragma once

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace nrmi {

/// An interface has no signal of that name.
class NEL_EXPORT cNoSuchSignalException
    : public nstd::tExceptionLeaf<cNoSuchSignalException, nstd::cRuntimeException> {
public:
    /// `signalName` is the name that was looked for.
    explicit cNoSuchSignalException(nstd::cAsciiString const& signalName);
    cNoSuchSignalException(cNoSuchSignalException const&) = default;
    cNoSuchSignalException(cNoSuchSignalException&&) = default;
    ~cNoSuchSignalException() override;
    cNoSuchSignalException& operator=(cNoSuchSignalException other) noexcept;
    void swap(cNoSuchSignalException& other) noexcept;

    /// The name that was looked for.
    nstd::cAsciiString const& signalName() const { return msSignalName; }

private:
    nstd::cAsciiString msSignalName;
};

} // namespace nrmi
