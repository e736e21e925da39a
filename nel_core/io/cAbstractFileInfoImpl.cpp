#include "nel_core/io/cAbstractFileInfoImpl.h"

namespace nio {

cAbstractFileInfoImpl::~cAbstractFileInfoImpl() = default;

} // namespace nio
