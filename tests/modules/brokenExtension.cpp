#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/moduleEntry.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/piTypes.h"

namespace {

// No core extension, whatever it claims to be; refuses a frame that holds no piBool.
class cPlugIn : public ncs::cAbstractPlugIn {
public:
    explicit cPlugIn(nsa::cReferenceFrame& frame) : cAbstractPlugIn(frame), mbClaims(frame.readNext<piBool>())
    {
    }

    bool isCoreExtension() const override { return mbClaims; }

private:
    bool mbClaims;
};

} // namespace

NEL_MODULE_PLUGIN(cPlugIn)
NEL_MODULE_VERSION(1, 0)
