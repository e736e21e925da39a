#include "nel_core/pi/cAbstractMutexImpl.h"

namespace npi {

cAbstractMutexImpl::~cAbstractMutexImpl() = default;

} // namespace npi
