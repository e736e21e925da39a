#pragma once

#include "nel_core/nce/net++/cNetAbstractIPv4Address.h"

struct sockaddr_in;

namespace nnet {

/// An address of TCP over IPv4. Names are not resolved.
class cTcpIpv4Address final : public nce::cNetAbstractIPv4Address {
public:
    /// 0.0.0.0, port 0.
    cTcpIpv4Address() noexcept = default;
    /// The address that the system tells.
    explicit cTcpIpv4Address(sockaddr_in const& name) noexcept;
    /// The same address as `other`; raises an unsupported operation when that is of another family.
    explicit cTcpIpv4Address(nce::cNetAbstractAddress const& other);
    cTcpIpv4Address(cTcpIpv4Address const&) = default;
    cTcpIpv4Address& operator=(cTcpIpv4Address const&) = default;
    ~cTcpIpv4Address() override;

    /// The address as the system takes it.
    sockaddr_in name() const noexcept;
    /// Makes `other` the same address; raises an unsupported operation when it is of another family.
    void copyTo(nce::cNetAbstractAddress& other) const;

    bool isEqual(nce::cNetAbstractAddress const& other) const override;
    /// Whether all bytes and the port are 0.
    bool isNull() const override;
    void clear() override;
    [[nodiscard]] nstd::tAutoPtr<nce::cNetAbstractAddress> clone() const override;
    unsigned int port() const override;
    /// Raises out-of-range 1 for one above 65535, and so does setIPv4().
    void setPort(unsigned int port) override;
    void setIPv4(unsigned int bytes, unsigned int port) override;
    void getIPv4(unsigned char* bytes, unsigned int& port) const override;

private:
    unsigned int asNumber() const noexcept;

    unsigned char maBytes[4] = {}; ///< in the order of the text form, which is that of the network
    unsigned short miPort = 0;     ///< in the order of the host
};

} // namespace nnet
