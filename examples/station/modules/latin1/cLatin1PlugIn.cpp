#include "cLatin1PlugIn.h"

#include "cEnDecLatin1.h"
#include "nel_core/ncs/moduleEntry.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tVector.h"

namespace {

constexpr char const* kNames[] = {"ISO-8859-1", "LATIN1"};

} // namespace

cLatin1PlugIn::cLatin1PlugIn(nsa::cReferenceFrame& frame) : cAbstractPlugIn(frame)
{
    info().setName("latin1");
}

cLatin1PlugIn::~cLatin1PlugIn() = default;

bool cLatin1PlugIn::isCoreExtension() const
{
    return true;
}

nce::cAbstractCoreExtension const& cLatin1PlugIn::coreExtension() const
{
    return *this;
}

nstd::cAsciiString cLatin1PlugIn::pluginTypeName() const
{
    return "codec";
}

nstd::cAsciiString cLatin1PlugIn::description() const
{
    return "Western European text";
}

nstd::cBuildInfo const& cLatin1PlugIn::buildInfo() const
{
    return moduleInfo().buildInfo();
}

bool cLatin1PlugIn::supports(nstd::cAsciiString const& name) const
{
    return name == kNames[0] || name == kNames[1];
}

void cLatin1PlugIn::provides(nstd::tVector<nstd::cAsciiString>& names) const
{
    for (auto const* const name : kNames)
        names.append(name);
}

nstd::tAutoPtr<nucs::cAbstractEnDec> cLatin1PlugIn::createEnDec(nstd::cAsciiString const&) const
{
    return nstd::tAutoPtr<nucs::cAbstractEnDec>(new cEnDecLatin1);
}

NEL_MODULE_PLUGIN(cLatin1PlugIn)
NEL_MODULE_VERSION(1, 0)
