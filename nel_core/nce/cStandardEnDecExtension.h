#pragma once

#include "nel_core/nce/cAbstractEnDecExtension.h"
#include "nel_core/std/cBuildInfo.h"

namespace nce {

/// The codecs of the library under the names "UTF-8", "UTF8", "UTF-16" and "UTF16". No system has it by
/// itself: an application adds it to its core extensions.
class NEL_EXPORT cStandardEnDecExtension : public cAbstractEnDecExtension {
public:
    cStandardEnDecExtension();
    ~cStandardEnDecExtension() override;

    nstd::cAsciiString description() const override;
    nstd::cBuildInfo const& buildInfo() const override;
    bool supports(nstd::cAsciiString const& name) const override;
    void provides(nstd::tVector<nstd::cAsciiString>& names) const override;
    /// Raises cUnsupportedExtensionException for any other name.
    [[nodiscard]] nstd::tAutoPtr<nucs::cAbstractEnDec>
    createEnDec(nstd::cAsciiString const& name) const override;

private:
    nstd::cBuildInfo moBuildInfo;
};

} // namespace nce
