#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"

namespace nce {

/// Offers one kind of service under one or several names.
///
/// There is a base for each kind, which adds the operations that create the service:
/// cNetAbstractAddressExtension, cAbstractSAExtension and cAbstractEnDecExtension. What an extension creates
/// belongs to who asked for it, and must be gone before an extension that was loaded is unloaded.
class NEL_EXPORT cAbstractCoreExtension {
public:
    enum ExtensionType : unsigned int {
        etNetAddress = 1,
        etSerialization = 2,
        etEnDec = 3,
    };

    cAbstractCoreExtension() = default;
    cAbstractCoreExtension(cAbstractCoreExtension const&) = delete;
    cAbstractCoreExtension& operator=(cAbstractCoreExtension const&) = delete;
    virtual ~cAbstractCoreExtension();

    virtual ExtensionType extensionType() const = 0;
    virtual nstd::cAsciiString description() const = 0;
    virtual nstd::cBuildInfo const& buildInfo() const = 0;
    /// Whether there is a service of that name, which is in upper case.
    virtual bool supports(nstd::cAsciiString const& name) const = 0;
    /// Appends the names of its services; none here.
    virtual void provides(nstd::tVector<nstd::cAsciiString>& names) const;
};

} // namespace nce
