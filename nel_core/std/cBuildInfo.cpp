#include "nel_core/std/cBuildInfo.h"

#include <utility>

namespace nstd {

cBuildInfo::cBuildInfo() : cBuildInfo("unknown", "unknown", "unknown", "unknown", "unknown", 0) { }

cBuildInfo::cBuildInfo(char const* buildSystem, char const* compiler, char const* compilerVersion,
                       char const* buildHost, char const* buildDate, unsigned int buildCount)
    : msBuildSystem(buildSystem),
      msCompiler(compiler),
      msCompilerVersion(compilerVersion),
      msBuildHost(buildHost),
      msBuildDate(buildDate),
      miBuildCount(buildCount)
{
}

cBuildInfo::cBuildInfo(cBuildInfo const& other) = default;

cBuildInfo& cBuildInfo::operator=(cBuildInfo const& other)
{
    cBuildInfo copy(other);
    swap(copy);
    return *this;
}

cBuildInfo::~cBuildInfo() = default;

void cBuildInfo::swap(cBuildInfo& other) noexcept
{
    msBuildSystem.swap(other.msBuildSystem);
    msCompiler.swap(other.msCompiler);
    msCompilerVersion.swap(other.msCompilerVersion);
    msBuildHost.swap(other.msBuildHost);
    msBuildDate.swap(other.msBuildDate);
    std::swap(miBuildCount, other.miBuildCount);
}

} // namespace nstd
