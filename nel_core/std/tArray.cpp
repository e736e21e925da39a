#include "nel_core/std/tArray.h"

#include "nel_core/std/tArrayRef.h"
#include "nel_core/std/tConstArrayRef.h"

namespace nstd {

template class tArray<char, tArrayByteLevelTraits<char>>;
template class tArray<char, tArrayAsciiStringTraits<char>>;
template class tArray<unsigned int, tArrayByteLevelTraits<unsigned int>>;
template class tArray<unsigned short, tArrayByteLevelTraits<unsigned short>>;

template class tConstArrayRef<char, tArrayByteLevelTraits<char>>;
template class tConstArrayRef<char, tArrayAsciiStringTraits<char>>;
template class tConstArrayRef<unsigned int, tArrayByteLevelTraits<unsigned int>>;
template class tConstArrayRef<unsigned short, tArrayByteLevelTraits<unsigned short>>;

template class tArrayRef<char, tArrayByteLevelTraits<char>>;

} // namespace nstd
