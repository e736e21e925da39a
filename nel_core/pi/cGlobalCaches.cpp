#include "nel_core/pi/cGlobalCaches.h"

namespace npi {

cGlobalCaches::cGlobalCaches() = default;
cGlobalCaches::~cGlobalCaches() = default;

cGlobalCaches::tPathFixupHash& cGlobalCaches::createPathFixupHash()
{
    mpPathFixupHash.reset(new tPathFixupHash, nstd::tAutoPtrType::ptObject);
    return *mpPathFixupHash;
}

cGlobalCaches::tPathFixupHash* cGlobalCaches::hasPathFixupHash() const
{
    return mpPathFixupHash.get();
}

void cGlobalCaches::clear()
{
    mpPathFixupHash.reset(nullptr, nstd::tAutoPtrType::ptObject);
}

} // namespace npi
