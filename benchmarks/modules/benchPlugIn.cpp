// The module that the benchmark of the class loader loads.

#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/moduleEntry.h"

namespace {

class cBenchPlugIn : public ncs::cAbstractPlugIn {
public:
    using ncs::cAbstractPlugIn::cAbstractPlugIn;
};

} // namespace

NEL_MODULE_PLUGIN(cBenchPlugIn)
NEL_MODULE_VERSION(1, 0)
