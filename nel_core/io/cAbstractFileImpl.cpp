#include "nel_core/io/cAbstractFileImpl.h"

#include <utility>

#include "nel_core/std/piAssert.h"

namespace nio {

cAbstractFileImpl::~cAbstractFileImpl() = default;

cAbstractIOBlockDevice& cAbstractFileImpl::bd() const
{
    NEL_ASSERT(mpBD != 0);
    return *mpBD;
}

void cAbstractFileImpl::swapBD(cAbstractFileImpl& other) noexcept
{
    std::swap(mpBD, other.mpBD);
}

} // namespace nio
