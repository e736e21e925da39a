#include "nel_core/nce/cGenericExtension.h"

namespace nce {

cGenericExtension::cGenericExtension(nstd::cAsciiString const& description, ExtensionType type)
    : msDescription(description),
      meType(type)
{
}

cGenericExtension::~cGenericExtension() = default;

cAbstractCoreExtension::ExtensionType cGenericExtension::extensionType() const
{
    return meType;
}

nstd::cAsciiString cGenericExtension::description() const
{
    return msDescription;
}

nstd::cBuildInfo const& cGenericExtension::buildInfo() const
{
    return moBuildInfo;
}

bool cGenericExtension::supports(nstd::cAsciiString const&) const
{
    return false;
}

} // namespace nce
