#pragma once

#include "nel_core/ncs/cComponentAddr.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace ncs {

/// No module answers to an address or name.
class NEL_EXPORT cNoSuchModuleException
    : public nstd::tExceptionLeaf<cNoSuchModuleException, nstd::cBugException> {
public:
    /// Nothing was found by this text, address or location.
    explicit cNoSuchModuleException(nstd::cAsciiString const& text);
    explicit cNoSuchModuleException(cComponentAddr const& address);
    explicit cNoSuchModuleException(cComponentLocation const& location);
    cNoSuchModuleException(cNoSuchModuleException const&) = default;
    cNoSuchModuleException(cNoSuchModuleException&&) = default;
    ~cNoSuchModuleException() override;
    cNoSuchModuleException& operator=(cNoSuchModuleException other) noexcept;
    void swap(cNoSuchModuleException& other) noexcept;

    /// The address, or that of the location, which was looked for; not valid for a text.
    cComponentAddr const& address() const { return mAddress; }

private:
    cComponentAddr mAddress;
};

} // namespace ncs
