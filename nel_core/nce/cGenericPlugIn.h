#pragma once

#include "nel_core/nce/cGenericExtension.h"
#include "nel_core/ncs/cAbstractPlugIn.h"

namespace nce {

/// A plug-in that can be loaded as a core extension and offers no service of its own.
class NEL_EXPORT cGenericPlugIn : public ncs::cAbstractPlugIn {
public:
    cGenericPlugIn(nsa::cReferenceFrame& frame, nstd::cAsciiString description);
    ~cGenericPlugIn() override;

    bool isCoreExtension() const override;
    cAbstractCoreExtension const& coreExtension() const override;

private:
    cGenericExtension mExtension;
};

} // namespace nce
