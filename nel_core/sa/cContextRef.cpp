#include "nel_core/sa/cContextRef.h"

#include <utility>

#include "nel_core/sa/cAbstractContextData.h"
#include "nel_core/sa/cSAExceptions.h"

namespace nsa {

cContextRef::~cContextRef()
{
    delete mpData;
}

cAbstractContextData* cContextRef::unguard()
{
    if (!mpData)
        cSAExceptions::throwContextRefNoImpl();
    return std::exchange(mpData, nullptr);
}

} // namespace nsa
