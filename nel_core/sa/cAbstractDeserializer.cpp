#include "nel_core/sa/cAbstractDeserializer.h"

namespace nsa {

cAbstractDeserializer::~cAbstractDeserializer() = default;

void cAbstractDeserializer::load(unsigned short& value)
{
    unsigned int wide = 0;
    load(wide);
    value = static_cast<unsigned short>(wide);
}

void cAbstractDeserializer::load(short& value)
{
    int wide = 0;
    load(wide);
    value = static_cast<short>(wide);
}

unsigned int cAbstractDeserializer::currentPos() const
{
    return kNoPosition;
}

} // namespace nsa
