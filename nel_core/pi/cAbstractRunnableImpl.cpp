#include "nel_core/pi/cAbstractRunnableImpl.h"

namespace npi {

cAbstractRunnableImpl::~cAbstractRunnableImpl() = default;

} // namespace npi
