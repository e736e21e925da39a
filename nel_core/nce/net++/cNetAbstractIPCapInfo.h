#pragma once

#include "nel_core/export.h"

namespace nce {

/// What a network implementation can do with IP.
class NEL_EXPORT cNetAbstractIPCapInfo {
public:
    virtual ~cNetAbstractIPCapInfo();

    virtual bool supportsIPv4() const = 0;
    virtual bool supportsIPv6() const = 0;
    /// The largest packet in bytes.
    virtual unsigned int maxPacketSize() const = 0;
};

} // namespace nce
