#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cBuildInfo.h"

namespace ncs {

/// What a module tells about itself.
///
/// Stored form: name, author, description, the build information, context; never labelled.
class NEL_EXPORT cModuleInfo {
public:
    /// All texts are empty, the build information is the default one.
    cModuleInfo();
    cModuleInfo(cModuleInfo const&) = default;
    cModuleInfo(cModuleInfo&&) = default;
    cModuleInfo& operator=(cModuleInfo other) noexcept;
    void swap(cModuleInfo& other) noexcept;

    nstd::cAsciiString const& name() const noexcept { return msName; }
    void setName(nstd::cAsciiString const& name) { msName = name; }
    nstd::cAsciiString const& author() const noexcept { return msAuthor; }
    void setAuthor(nstd::cAsciiString const& author) { msAuthor = author; }
    nstd::cAsciiString const& description() const noexcept { return msDescription; }
    void setDescription(nstd::cAsciiString const& description) { msDescription = description; }
    nstd::cBuildInfo const& buildInfo() const noexcept { return moBuildInfo; }
    nstd::cBuildInfo& bi() noexcept { return moBuildInfo; }
    void setBuildInfo(nstd::cBuildInfo const& buildInfo) { moBuildInfo = buildInfo; }
    /// What the module was loaded as: the text that whoever loaded it has chosen.
    nstd::cAsciiString const& context() const noexcept { return msContext; }
    void setContext(nstd::cAsciiString const& context) { msContext = context; }

    /// One line for people: name, build number, author, host and date of the build, compiler.
    nstd::cAsciiString toString() const;

    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    /// A failed load changes nothing.
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    nstd::cAsciiString msName;
    nstd::cAsciiString msAuthor;
    nstd::cAsciiString msDescription;
    nstd::cBuildInfo moBuildInfo;
    nstd::cAsciiString msContext;
};

} // namespace ncs
