#include "nel_core/pi/cAbstractPlatformInfo.h"

#include "nel_core/io/cFileInfo.h"
#include "nel_core/ucs/cString.h"

namespace npi {
namespace {

nucs::cString textOf(nstd::cAsciiString const& value)
{
    return nucs::cString(value, '?');
}

} // namespace

cAbstractPlatformInfo::~cAbstractPlatformInfo() = default;

void cAbstractPlatformInfo::osSpecificSOName(nucs::cString& name) const
{
    nucs::cString edited(name);
    nio::cFileInfo::setFileNamePrefix(edited, textOf(osSharedObjectFilePrefix()));
    nio::cFileInfo::setFileNameSuffix(edited, textOf(osSharedObjectFileSuffix()));
    nio::cFileInfo::setFileNameExtension(edited, textOf(osSharedObjectFileExtension()));
    name.swap(edited);
}

} // namespace npi
