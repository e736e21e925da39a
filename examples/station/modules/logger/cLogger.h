#pragma once

#include "cLog.h"
#include "nel_core/ncs/cAbstractComponent.h"

/// Writes lines for the other components.
///
/// Its frame holds the name of an encoding as nstd::cAsciiString, for which there must be a core extension.
class cLogger : public ncs::cAbstractComponent {
public:
    /// Raises nce::cUnsupportedExtensionException for an encoding that there is not.
    cLogger(ncs::cModuleMgr& manager, nsa::cReferenceFrame& frame);
    ~cLogger() override;

private:
    cLog mLog;
};
