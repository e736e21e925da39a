#include "nel_core/nce/net++/cNetAbstractIPCapInfo.h"

namespace nce {

cNetAbstractIPCapInfo::~cNetAbstractIPCapInfo() = default;

} // namespace nce
