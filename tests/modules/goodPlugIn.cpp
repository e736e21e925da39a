#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/moduleEntry.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/piTypes.h"

namespace {

/// Counts itself, while it lives, in the number that it may be created with.
struct cGoodPlugIn : ncs::cAbstractPlugIn {
    explicit cGoodPlugIn(nsa::cReferenceFrame& frame)
        : count(frame.canRead() ? frame.readNext<piInt32>() : ownCount)
    {
        ++count;
    }
    ~cGoodPlugIn() override { --count; }

    piInt32 ownCount = 0;
    piInt32& count;
};

} // namespace

NEL_MODULE_PLUGIN(cGoodPlugIn)
NEL_MODULE_VERSION(3, 14)
