#include "cTcpIpv4Extension.h"

#include "cTcpIpv4Address.h"
#include "cTcpIpv4Client.h"
#include "cTcpIpv4Server.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/std/tVector.h"

namespace nnet {

cTcpIpv4Extension::cTcpIpv4Extension() : moBuildInfo(npi::cPlatform().buildInfo()) { }

cTcpIpv4Extension::~cTcpIpv4Extension() = default;

nstd::cAsciiString cTcpIpv4Extension::description() const
{
    return "TCP over IPv4";
}

nstd::cBuildInfo const& cTcpIpv4Extension::buildInfo() const
{
    return moBuildInfo;
}

bool cTcpIpv4Extension::supports(nstd::cAsciiString const& name) const
{
    return name == "TCPIPV4";
}

void cTcpIpv4Extension::provides(nstd::tVector<nstd::cAsciiString>& names) const
{
    names.append("TcpIpv4");
}

nstd::tAutoPtr<nce::cNetAbstractAddress> cTcpIpv4Extension::createNetAddress(nstd::cAsciiString const&) const
{
    return nstd::tAutoPtr<nce::cNetAbstractAddress>(new cTcpIpv4Address);
}

nstd::tAutoPtr<cAbstractTcpServer> cTcpIpv4Extension::createServer(nce::cNetAbstractAddress const& local,
                                                                   npi::cWorkQueue* queue) const
{
    return nstd::tAutoPtr<cAbstractTcpServer>(new cTcpIpv4Server(cTcpIpv4Address(local), queue));
}

nstd::tAutoPtr<nce::cNetAbstractClient>
cTcpIpv4Extension::createClient(nce::cNetAbstractAddress const& target, npi::cWorkQueue* queue) const
{
    return nstd::tAutoPtr<nce::cNetAbstractClient>(new cTcpIpv4Client(cTcpIpv4Address(target), queue));
}

} // namespace nnet
