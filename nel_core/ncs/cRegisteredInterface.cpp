#include "nel_core/ncs/cRegisteredInterface.h"

namespace ncs {

cRegisteredInterface::cRegisteredInterface(cAbstractInterface& interface) noexcept
    : mpInterface(&interface),
      mbOwned(false)
{
}

cRegisteredInterface::cRegisteredInterface(nstd::tAutoPtr<cAbstractInterface> interface) noexcept
    : mpInterface(interface.release()),
      mbOwned(interface.pointerType() == nstd::tAutoPtrType::ptObject)
{
}

cRegisteredInterface::~cRegisteredInterface()
{
    if (mbOwned)
        delete mpInterface;
}

} // namespace ncs
