#pragma once

#include "nel_core/nce/net++/cNetAbstractAddress.h"

namespace nce {

/// An address of the Internet protocols, which has a port.
class NEL_EXPORT cNetAbstractIPAddress : public cNetAbstractAddress {
public:
    ~cNetAbstractIPAddress() override;

    cNetAbstractIPAddress* isIPAddress() override;
    cNetAbstractIPAddress const* isIPAddress() const override;
    virtual unsigned int port() const = 0;
    /// Sets port(), 0 to 65535.
    virtual void setPort(unsigned int port) = 0;
};

} // namespace nce
