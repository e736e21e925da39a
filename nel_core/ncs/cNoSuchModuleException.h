#pragma once

#include "nel_core/std/cBugException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace ncs {

/// No module answers to an address or name.
class NEL_EXPORT cNoSuchModuleException
    : public nstd::tExceptionLeaf<cNoSuchModuleException, nstd::cBugException> {
public:
    /// `address` is the text form of what was looked for.
    explicit cNoSuchModuleException(nstd::cAsciiString const& address);
    cNoSuchModuleException(cNoSuchModuleException const&) = default;
    cNoSuchModuleException(cNoSuchModuleException&&) = default;
    ~cNoSuchModuleException() override;
    cNoSuchModuleException& operator=(cNoSuchModuleException other) noexcept;
};

} // namespace ncs
