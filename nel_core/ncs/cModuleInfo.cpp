#include "nel_core/ncs/cModuleInfo.h"

#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cNumberConversionFormat.h"

namespace ncs {

cModuleInfo::cModuleInfo() = default;

cModuleInfo& cModuleInfo::operator=(cModuleInfo other) noexcept
{
    swap(other);
    return *this;
}

void cModuleInfo::swap(cModuleInfo& other) noexcept
{
    msName.swap(other.msName);
    msAuthor.swap(other.msAuthor);
    msDescription.swap(other.msDescription);
    moBuildInfo.swap(other.moBuildInfo);
    msContext.swap(other.msContext);
}

nstd::cAsciiString cModuleInfo::toString() const
{
    nstd::cAsciiString text(msName);
    text += " (build ";
    text.addUNum(moBuildInfo.buildCount(), nstd::cNumberConversionFormat(10));
    text += ") Written by ";
    text += msAuthor;
    text += " builded on \"";
    text += moBuildInfo.buildHost();
    text += "\" (";
    text += moBuildInfo.buildDate();
    text += ") using ";
    text += moBuildInfo.compiler();
    text += " - ";
    text += moBuildInfo.compilerVersion();
    return text;
}

nsa::cAbstractSerializer& cModuleInfo::operator>>(nsa::cAbstractSerializer& serializer) const
{
    for (auto const* text : {&msName, &msAuthor, &msDescription})
        *text >> serializer;
    moBuildInfo >> serializer;
    return msContext >> serializer;
}

nsa::cAbstractDeserializer& cModuleInfo::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    cModuleInfo loaded;
    for (auto* text : {&loaded.msName, &loaded.msAuthor, &loaded.msDescription})
        *text << deserializer;
    loaded.moBuildInfo << deserializer;
    loaded.msContext << deserializer;
    swap(loaded);
    return deserializer;
}

} // namespace ncs
