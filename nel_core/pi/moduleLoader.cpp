#include "nel_core/pi/moduleLoader.h"

#include "nel_core/pi/cAbstractPlatformInfo.h"
#include "nel_core/pi/cPlatform.h"

namespace npi {

nucs::cString moduleFileName(nucs::cString name)
{
    cPlatform::createPlatformInfo()->osSpecificSOName(name);
    return name;
}

nstd::tAutoPtr<cAbstractClassLoader> loadModule(nucs::cString const& name)
{
    return cPlatform::createClassLoader(moduleFileName(name));
}

} // namespace npi
