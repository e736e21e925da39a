#include "cTcpIpv4PlugIn.h"

#include "nel_core/ncs/moduleEntry.h"

namespace nnet {

cTcpIpv4PlugIn::cTcpIpv4PlugIn(nsa::cReferenceFrame& frame) : cAbstractPlugIn(frame)
{
    info().setName("NetTcpIpv4");
    info().setDescription(mExtension.description());
    info().setBuildInfo(mExtension.buildInfo());
}

cTcpIpv4PlugIn::~cTcpIpv4PlugIn() = default;

bool cTcpIpv4PlugIn::isCoreExtension() const
{
    return true;
}

nce::cAbstractCoreExtension const& cTcpIpv4PlugIn::coreExtension() const
{
    return mExtension;
}

nstd::cAsciiString cTcpIpv4PlugIn::pluginTypeName() const
{
    return "TcpIpv4";
}

} // namespace nnet

NEL_MODULE_PLUGIN(nnet::cTcpIpv4PlugIn)
NEL_MODULE_VERSION(1, 0)
