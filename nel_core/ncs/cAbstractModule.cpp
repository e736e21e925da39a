#include "nel_core/ncs/cAbstractModule.h"

#include "nel_core/pi/cAbstractClassLoader.h"

namespace ncs {

cAbstractModule::cAbstractModule() = default;

cAbstractModule::cAbstractModule(nsa::cReferenceFrame&) { }

cAbstractModule::~cAbstractModule()
{
    if (mpClassLoader)
        mpClassLoader->decRef();
}

void cAbstractModule::storeSettings(nsa::cAbstractSerializer&) const { }

void cAbstractModule::loadSettings(nsa::cAbstractDeserializer&) { }

void cAbstractModule::applySettings() { }

void cAbstractModule::setClassLoader(npi::cAbstractClassLoader* loader, nstd::cAsciiString const& context)
{
    mInfo.setContext(context);
    mpClassLoader = loader;
}

} // namespace ncs
