#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/cAsciiString.h"

namespace nstd {

/// Records how a module was built.
class NEL_EXPORT cBuildInfo {
public:
    /// All texts "unknown", count 0.
    cBuildInfo();
    /// A null text becomes an empty one.
    cBuildInfo(char const* buildSystem, char const* compiler, char const* compilerVersion,
               char const* buildHost, char const* buildDate, unsigned int buildCount);
    cBuildInfo(cBuildInfo const& other);
    cBuildInfo& operator=(cBuildInfo const& other);
    virtual ~cBuildInfo();
    void swap(cBuildInfo& other) noexcept;

    cAsciiString buildSystem() const { return msBuildSystem; }
    cAsciiString compiler() const { return msCompiler; }
    cAsciiString compilerVersion() const { return msCompilerVersion; }
    cAsciiString buildHost() const { return msBuildHost; }
    cAsciiString buildDate() const { return msBuildDate; }
    /// The running number of the build.
    unsigned long long buildCount() const { return miBuildCount; }

    /// The stored form is the five texts in the order above, as ASCII strings, then the number as `unsigned
    /// long long`. A failed load changes nothing.
    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    cAsciiString msBuildSystem;
    cAsciiString msCompiler;
    cAsciiString msCompilerVersion;
    cAsciiString msBuildHost;
    cAsciiString msBuildDate;
    unsigned long long miBuildCount;
};

} // namespace nstd
