#include "nel_core/np/cBasicProcessData.h"

namespace np {

cBasicProcessData::cBasicProcessData() : cAbstractProcessData(nullptr) { }

cBasicProcessData::~cBasicProcessData() = default;

} // namespace np
