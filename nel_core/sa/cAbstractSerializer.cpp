#include "nel_core/sa/cAbstractSerializer.h"

namespace nsa {

cAbstractSerializer::~cAbstractSerializer() = default;

void cAbstractSerializer::store(unsigned short value)
{
    store(static_cast<unsigned int>(value));
}

void cAbstractSerializer::store(short value)
{
    store(static_cast<int>(value));
}

} // namespace nsa
