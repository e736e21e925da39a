#pragma once

#include "nel_core/export.h"
#include "nel_core/ncs/cComponentAddr.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace ncs {

/// Loads components from shared objects.
class NEL_EXPORT cComponentLoader {
public:
    /// Loads a module by name (see cPlugInMgr::loadPlugIn()), creates its component with the frame and
    /// registers both with the manager, which unloads the shared object when the component is gone. The name
    /// becomes the context of the component's info(), so that the manager finds it by that text. Raises the
    /// errors of the class loader, with nothing loaded, and those of cModuleMgr::addComponent(): the next
    /// pass unloads the shared object then.
    static cAbstractComponent& load(cModuleMgr& manager, nucs::cString const& name,
                                    nsa::cReferenceFrame& frame,
                                    cComponentAddr const& deployedBy = cComponentAddr());
};

} // namespace ncs
