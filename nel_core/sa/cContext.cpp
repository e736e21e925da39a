#include "nel_core/sa/cContext.h"

#include <utility>

#include "nel_core/sa/cAbstractContextData.h"

namespace nsa {

void cContext::release()
{
    if (mpData)
        mpData->release();
}

cAbstractContextData* cContext::unguard() noexcept
{
    return std::exchange(mpData, nullptr);
}

void cContext::unset() noexcept
{
    delete unguard();
}

} // namespace nsa
