#include "cTcpIpv4Address.h"

#include <cstring>
#include <netinet/in.h>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/tAutoPtr.h"

namespace nnet {
namespace {

constexpr unsigned int kMaxPort = 65535;

// The address as one of our family, whoever has implemented it; null when it is none.
nce::cNetAbstractIPv4Address const* asOurs(nce::cNetAbstractAddress const& address)
{
    auto const* const ours = dynamic_cast<nce::cNetAbstractIPv4Address const*>(&address);
    return ours && ours->addrType() == "TcpIpv4" ? ours : nullptr;
}

unsigned short checkedPort(unsigned int port, char const* operation)
{
    if (port > kMaxPort)
        cSTDExceptions::throwOutOfRange("cTcpIpv4Address", operation, cSTDExceptions::ortValue, port, 0,
                                        kMaxPort);
    return static_cast<unsigned short>(port);
}

} // namespace

cTcpIpv4Address::cTcpIpv4Address(sockaddr_in const& name) noexcept : miPort(ntohs(name.sin_port))
{
    std::memcpy(maBytes, &name.sin_addr, sizeof maBytes);
}

cTcpIpv4Address::cTcpIpv4Address(nce::cNetAbstractAddress const& other)
{
    auto const* const ours = asOurs(other);
    if (!ours)
        cSTDExceptions::throwUnsupportedOperation("cTcpIpv4Address::cTcpIpv4Address()");
    unsigned int port = 0;
    ours->getIPv4(maBytes, port);
    miPort = checkedPort(port, "cTcpIpv4Address");
}

cTcpIpv4Address::~cTcpIpv4Address() = default;

sockaddr_in cTcpIpv4Address::name() const noexcept
{
    sockaddr_in name = {};
    name.sin_family = AF_INET;
    name.sin_port = htons(miPort);
    std::memcpy(&name.sin_addr, maBytes, sizeof maBytes);
    return name;
}

void cTcpIpv4Address::copyTo(nce::cNetAbstractAddress& other) const
{
    if (!asOurs(other))
        cSTDExceptions::throwUnsupportedOperation("cTcpIpv4Address::copyTo()");
    static_cast<nce::cNetAbstractIPv4Address&>(other).setIPv4(asNumber(), miPort);
}

bool cTcpIpv4Address::isEqual(nce::cNetAbstractAddress const& other) const
{
    auto const* const ours = asOurs(other);
    if (!ours)
        return false;
    unsigned char bytes[4];
    unsigned int port = 0;
    ours->getIPv4(bytes, port);
    return port == miPort && std::memcmp(bytes, maBytes, sizeof bytes) == 0;
}

bool cTcpIpv4Address::isNull() const
{
    return asNumber() == 0 && miPort == 0;
}

void cTcpIpv4Address::clear()
{
    setIPv4(0, 0);
}

nstd::tAutoPtr<nce::cNetAbstractAddress> cTcpIpv4Address::clone() const
{
    return nstd::tAutoPtr<nce::cNetAbstractAddress>(new cTcpIpv4Address(*this));
}

unsigned int cTcpIpv4Address::port() const
{
    return miPort;
}

void cTcpIpv4Address::setPort(unsigned int port)
{
    miPort = checkedPort(port, "setPort");
}

void cTcpIpv4Address::setIPv4(unsigned int bytes, unsigned int port)
{
    miPort = checkedPort(port, "setIPv4");
    for (unsigned int i = 0; i < sizeof maBytes; ++i)
        maBytes[i] = static_cast<unsigned char>(bytes >> (8 * i));
}

void cTcpIpv4Address::getIPv4(unsigned char* bytes, unsigned int& port) const
{
    std::memcpy(bytes, maBytes, sizeof maBytes);
    port = miPort;
}

unsigned int cTcpIpv4Address::asNumber() const noexcept
{
    unsigned int number = 0;
    for (unsigned int i = 0; i < sizeof maBytes; ++i)
        number |= static_cast<unsigned int>(maBytes[i]) << (8 * i);
    return number;
}

} // namespace nnet
