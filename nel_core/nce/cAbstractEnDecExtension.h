#pragma once

#include "nel_core/nce/cAbstractCoreExtension.h"
#include "nel_core/ucs/fwd.h"

namespace nce {

/// Offers text codecs.
class NEL_EXPORT cAbstractEnDecExtension : public cAbstractCoreExtension {
public:
    ~cAbstractEnDecExtension() override;

    ExtensionType extensionType() const override;
    /// A codec of that name, which is in upper case; never empty.
    [[nodiscard]] virtual nstd::tAutoPtr<nucs::cAbstractEnDec>
    createEnDec(nstd::cAsciiString const& name) const = 0;
};

} // namespace nce
