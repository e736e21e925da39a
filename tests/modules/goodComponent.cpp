#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/moduleEntry.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/piTypes.h"

namespace {

/// Insists on the ID that it may be created with.
struct cGoodComponent : ncs::cAbstractComponent {
    cGoodComponent(ncs::cModuleMgr& manager, nsa::cReferenceFrame& frame)
        : cAbstractComponent(manager, frame),
          id(frame.canRead() ? frame.readNext<piUInt32>() : 0)
    {
    }
    unsigned int fixedModuleID() const override { return id; }

    unsigned int id;
};

} // namespace

NEL_MODULE_COMPONENT(cGoodComponent)
NEL_MODULE_VERSION(2, 7)
