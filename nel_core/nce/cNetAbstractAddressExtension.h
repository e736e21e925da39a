#pragma once

#include "nel_core/nce/cAbstractCoreExtension.h"
#include "nel_core/nce/fwd.h"

namespace nce {

/// Offers families of network addresses.
class NEL_EXPORT cNetAbstractAddressExtension : public cAbstractCoreExtension {
public:
    ~cNetAbstractAddressExtension() override;

    ExtensionType extensionType() const override;
    /// An address of the family of that name, written as the caller wrote it; never empty.
    [[nodiscard]] virtual nstd::tAutoPtr<cNetAbstractAddress>
    createNetAddress(nstd::cAsciiString const& name) const = 0;
};

} // namespace nce
