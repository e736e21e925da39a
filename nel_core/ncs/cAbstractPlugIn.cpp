#include "nel_core/ncs/cAbstractPlugIn.h"

#include "nel_core/ncs/cNCSExceptions.h"
#include "nel_core/ucs/cString.h"

namespace ncs {

cAbstractPlugIn::cAbstractPlugIn() = default;

cAbstractPlugIn::cAbstractPlugIn(nsa::cReferenceFrame& frame) : cAbstractModule(frame) { }

cAbstractPlugIn::~cAbstractPlugIn() = default;

bool cAbstractPlugIn::isPlugIn() const
{
    return true;
}

bool cAbstractPlugIn::isComponent() const
{
    return false;
}

void cAbstractPlugIn::storeSettings(nsa::cAbstractSerializer&) const { }

void cAbstractPlugIn::loadSettings(nsa::cAbstractDeserializer&) { }

void cAbstractPlugIn::applySettings() { }

bool cAbstractPlugIn::isCoreExtension() const
{
    return false;
}

nce::cAbstractCoreExtension const& cAbstractPlugIn::coreExtension() const
{
    cNCSExceptions::throwNoCoreExtension(nucs::cString(moduleInfo().name(), '?'));
}

nstd::cAsciiString cAbstractPlugIn::pluginTypeName() const
{
    return "none";
}

} // namespace ncs
