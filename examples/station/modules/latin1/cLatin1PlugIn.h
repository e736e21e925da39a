#pragma once

#include "nel_core/nce/cAbstractEnDecExtension.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/std/cAsciiString.h"

/// The plug-in, and the core extension that it provides: the codec under the names "ISO-8859-1" and "LATIN1".
class cLatin1PlugIn : public ncs::cAbstractPlugIn, public nce::cAbstractEnDecExtension {
public:
    explicit cLatin1PlugIn(nsa::cReferenceFrame& frame);
    ~cLatin1PlugIn() override;

    bool isCoreExtension() const override;
    nce::cAbstractCoreExtension const& coreExtension() const override;
    /// "codec".
    nstd::cAsciiString pluginTypeName() const override;

    nstd::cAsciiString description() const override;
    nstd::cBuildInfo const& buildInfo() const override;
    bool supports(nstd::cAsciiString const& name) const override;
    void provides(nstd::tVector<nstd::cAsciiString>& names) const override;
    [[nodiscard]] nstd::tAutoPtr<nucs::cAbstractEnDec>
    createEnDec(nstd::cAsciiString const& name) const override;
};
