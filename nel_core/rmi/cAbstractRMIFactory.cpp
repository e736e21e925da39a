#include "nel_core/rmi/cAbstractRMIFactory.h"

namespace nrmi {

cAbstractRMIFactory::~cAbstractRMIFactory() = default;

} // namespace nrmi
