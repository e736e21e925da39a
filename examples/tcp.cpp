#include "tcp.h"

#include "nel_core/nce/cCoreExtensionMgr.h"
#include "nel_core/nce/net++/cNetAbstractIPv4Address.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cSTDExceptions.h"

namespace {

constexpr char kModule[] = NEL_NET_MODULES "/NetTcpIpv4";
constexpr char kFamily[] = "TcpIpv4";

} // namespace

nnet::cAbstractTcpFactory const& loadTcp()
{
    auto& extensions = npi::system().coreExtensions;
    nsa::cReferenceFrame frame;
    extensions.load(nstd::cAsciiString(kModule), frame);
    auto const* const factory =
        dynamic_cast<nnet::cAbstractTcpFactory const*>(extensions.hasExtension(kFamily));
    if (!factory)
        cSTDExceptions::throwUnsupportedOperation("loadTcp()");
    return *factory;
}

// The library is lenient with what is around the numbers; an argument with anything else there is a mistake.
nstd::tAutoPtr<nce::cNetAbstractAddress> parseAddress(char const* text)
{
    auto address = npi::system().coreExtensions.createNetAddress(kFamily);
    try {
        address->fromString(text);
    } catch (nstd::cAbstractException const&) {
        return nstd::tAutoPtr<nce::cNetAbstractAddress>();
    }
    if (textOf(*address) != text)
        return nstd::tAutoPtr<nce::cNetAbstractAddress>();
    return address;
}

nstd::cAsciiString textOf(nce::cNetAbstractAddress const& address)
{
    auto const* const ipv4 = dynamic_cast<nce::cNetAbstractIPv4Address const*>(&address);
    return ipv4 ? ipv4->toString(true) : address.toString();
}
