#pragma once

#include "nel_core/nce/net++/cNetAbstractIPAddress.h"

namespace nce {

/// An address of IPv4: four bytes and a port. Where they are kept is the deriving class's business.
///
/// The text form is the four bytes in decimal with "." between them, followed, where the port is shown, by
/// ":" and the port: "192.168.0.1:8080".
class NEL_EXPORT cNetAbstractIPv4Address : public cNetAbstractIPAddress {
public:
    ~cNetAbstractIPv4Address() override;

    /// "TcpIpv4".
    nstd::cAsciiString addrType() const override;
    /// Without a port the port becomes 0. What follows the port is ignored, and so are empty parts in front
    /// of, behind and between separators, but not missing ones.
    void fromString(nstd::cAsciiString const& text) override;
    /// Without the port.
    nstd::cAsciiString toString() const override;
    virtual nstd::cAsciiString toString(bool withPort) const;
    /// Sets the bytes, the first of the text form in the lowest 8 bits, and the port.
    virtual void setIPv4(unsigned int bytes, unsigned int port) = 0;
    /// Writes the bytes in the order of the text form into the four at `bytes`, and the port.
    virtual void getIPv4(unsigned char* bytes, unsigned int& port) const = 0;
};

} // namespace nce
