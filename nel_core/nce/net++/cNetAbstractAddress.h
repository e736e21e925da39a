#pragma once

#include "nel_core/export.h"
#include "nel_core/nce/fwd.h"
#include "nel_core/std/fwd.h"

namespace nce {

/// The address of a peer in some family of networks; see cCoreExtensionMgr::createNetAddress().
class NEL_EXPORT cNetAbstractAddress {
public:
    cNetAbstractAddress() = default;
    virtual ~cNetAbstractAddress();

    /// The name of the family, by which its extension is found.
    virtual nstd::cAsciiString addrType() const = 0;
    /// Reads the family's text form. Raises cNETExceptions::throwInvalidAddress(); nothing has changed then.
    virtual void fromString(nstd::cAsciiString const& text) = 0;
    virtual nstd::cAsciiString toString() const = 0;
    /// Whether both are of the same family and have the same value.
    virtual bool isEqual(cNetAbstractAddress const& other) const = 0;
    /// Whether the address names nobody.
    virtual bool isNull() const = 0;
    /// Makes the address name nobody.
    virtual void clear() = 0;
    /// An address of the same family and value; never empty.
    [[nodiscard]] virtual nstd::tAutoPtr<cNetAbstractAddress> clone() const = 0;
    /// This object when it is an IP address; null here.
    virtual cNetAbstractIPAddress* isIPAddress();
    virtual cNetAbstractIPAddress const* isIPAddress() const;

protected:
    cNetAbstractAddress(cNetAbstractAddress const&) = default;
    cNetAbstractAddress& operator=(cNetAbstractAddress const&) = default;
};

} // namespace nce
