#include "nel_core/np/cSynchronizable.h"

namespace np {

cSynchronizable::cSynchronizable() = default;
cSynchronizable::~cSynchronizable() = default;

} // namespace np
