#pragma once

#include "nel_core/nce/cAbstractCoreExtension.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cBuildInfo.h"

namespace nce {

/// A core extension without any service.
class NEL_EXPORT cGenericExtension : public cAbstractCoreExtension {
public:
    cGenericExtension(nstd::cAsciiString const& description, ExtensionType type);
    ~cGenericExtension() override;

    ExtensionType extensionType() const override;
    nstd::cAsciiString description() const override;
    nstd::cBuildInfo const& buildInfo() const override;
    /// False for every name.
    bool supports(nstd::cAsciiString const& name) const override;

private:
    nstd::cBuildInfo moBuildInfo;
    nstd::cAsciiString msDescription;
    ExtensionType meType;
};

} // namespace nce
