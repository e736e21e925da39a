#include "nel_core/sa/saOperators.h"

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tArray.h"

namespace nsa {

using tBytes = nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>;

cAbstractSerializer& operator>>(char const* text, cAbstractSerializer& serializer)
{
    serializer.store(nstd::cAsciiString(text));
    return serializer;
}

cAbstractSerializer& operator>>(tBytes const& array, cAbstractSerializer& serializer)
{
    bool const labels = !serializer.noLabelsPreferred();
    if (labels)
        serializer.newLabel("Grow");
    serializer.store(array.growStep());
    if (labels)
        serializer.newLabel("Data");
    serializer.storeBlock(array.data(true), array.length());
    return serializer;
}

cAbstractDeserializer& operator<<(tBytes& array, cAbstractDeserializer& deserializer)
{
    bool const labels = !deserializer.noLabelsPreferred();
    unsigned int growStep = 0;
    tBytes loaded;
    if (labels)
        deserializer.findLabel("Grow");
    deserializer.load(growStep);
    if (labels)
        deserializer.findLabel("Data");
    deserializer.loadBlock(loaded);
    loaded.setGrowStep(growStep); // only now: a step from outside must not decide how much memory is taken
    array.swap(loaded);
    return deserializer;
}

} // namespace nsa
