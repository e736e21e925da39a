#include "nel_core/std/tSharedObjectData.h"

#include "nel_core/std/raise.h"

namespace nstd {

void tSharedObjectData::throwWrongSharedObjectDereference()
{
    raiseBug(makeMessage("$MTR$Invalid shared object dereference!"));
}

} // namespace nstd
