#include "nel_core/sa/cAbstractContextData.h"

namespace nsa {

cAbstractContextData::~cAbstractContextData() = default;

} // namespace nsa
