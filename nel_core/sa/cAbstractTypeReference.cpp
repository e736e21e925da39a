#include "nel_core/sa/cAbstractTypeReference.h"

namespace nsa {

cAbstractTypeReference::~cAbstractTypeReference() = default;

} // namespace nsa
