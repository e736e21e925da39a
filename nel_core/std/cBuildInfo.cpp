#include "nel_core/std/cBuildInfo.h"

#include <utility>

#include "nel_core/sa/saOperators.h"

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

nsa::cAbstractSerializer& cBuildInfo::operator>>(nsa::cAbstractSerializer& serializer) const
{
    for (auto const* text : {&msBuildSystem, &msCompiler, &msCompilerVersion, &msBuildHost, &msBuildDate})
        *text >> serializer;
    return miBuildCount >> serializer;
}

nsa::cAbstractDeserializer& cBuildInfo::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    cBuildInfo loaded;
    for (auto* text : {&loaded.msBuildSystem, &loaded.msCompiler, &loaded.msCompilerVersion,
                       &loaded.msBuildHost, &loaded.msBuildDate})
        *text << deserializer;
    loaded.miBuildCount << deserializer;
    swap(loaded);
    return deserializer;
}

} // namespace nstd
