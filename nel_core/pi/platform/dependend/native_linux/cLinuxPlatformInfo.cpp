#include "nel_core/pi/platform/dependend/native_linux/cLinuxPlatformInfo.h"

namespace npi {

cLinuxPlatformInfo::~cLinuxPlatformInfo() = default;

nstd::cAsciiString cLinuxPlatformInfo::platformName() const
{
    return "Linux";
}

nstd::cAsciiString cLinuxPlatformInfo::osSharedObjectFileExtension() const
{
    return ".so";
}

nstd::cAsciiString cLinuxPlatformInfo::osSharedObjectFilePrefix() const
{
    return "lib";
}

nstd::cAsciiString cLinuxPlatformInfo::osSharedObjectFileSuffix() const
{
    return nstd::cAsciiString();
}

nstd::cAsciiString cLinuxPlatformInfo::osAppFileExtension() const
{
    return nstd::cAsciiString();
}

} // namespace npi
