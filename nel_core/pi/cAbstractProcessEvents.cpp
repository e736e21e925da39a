#include "nel_core/pi/cAbstractProcessEvents.h"

namespace npi {

cAbstractProcessEvents::cAbstractProcessEvents()
{
    sigFinished.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
}

cAbstractProcessEvents::~cAbstractProcessEvents() = default;

void cAbstractProcessEvents::poll() { }

} // namespace npi
