#include "nel_core/np/cSynchronizable.h"

namespace np {

cSynchronizable::cSynchronizable() = default;
cSynchronizable::cSynchronizable(cSynchronizable const&) {
} // copying the locker would give one without mutex
cSynchronizable::~cSynchronizable() = default;

} // namespace np
