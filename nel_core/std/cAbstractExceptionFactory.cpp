#include "nel_core/std/cAbstractExceptionFactory.h"

namespace nstd {

cAbstractExceptionFactory::~cAbstractExceptionFactory() = default;

} // namespace nstd
