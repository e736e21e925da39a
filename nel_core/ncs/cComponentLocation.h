#pragma once

#include "nel_core/ncs/cComponentAddr.h"
#include "nel_core/std/cAsciiString.h"

namespace ncs {

/// Where a component is in the world: its address, the process and the host.
///
/// The text form is the address, "-", the process ID, "@" and the host name, then ":" and the local ID if
/// there is one: "1:7-4711@alpha:x". A host name or local ID with a "-", a blank, "@" or ":" cannot be read
/// back. The stored form is the address, the host name, the local ID and the process ID as `unsigned int`;
/// where labels are welcome, "LocalAddress" comes first, the address is in a context "ModuleAddress", and
/// the others stand behind "HostName", "LocalID" and "PID".
class NEL_EXPORT cComponentLocation {
public:
    /// This process, with an address that is not valid.
    cComponentLocation();
    cComponentLocation(cComponentAddr const& address, nstd::cAsciiString const& hostName,
                       nstd::cAsciiString const& localId, unsigned int pid);
    /// Parses the text; raises as fromString() does.
    explicit cComponentLocation(nstd::cAsciiString const& text);
    cComponentLocation(cComponentLocation const&) = default;
    cComponentLocation(cComponentLocation&&) = default;
    cComponentLocation& operator=(cComponentLocation other) noexcept;
    void swap(cComponentLocation& other) noexcept;

    /// Becomes a location in this process, without local ID; the address stays.
    void provide();

    cComponentAddr const& address() const noexcept { return mAddress; }
    void setAddress(cComponentAddr const& address) noexcept { mAddress = address; }
    nstd::cAsciiString const& hostName() const noexcept { return msHostName; }
    /// A further name for whoever needs one; normally empty.
    nstd::cAsciiString const& localId() const noexcept { return msLocalId; }
    unsigned int pid() const noexcept { return miPid; }

    bool operator==(cComponentLocation const& other) const noexcept;
    bool operator!=(cComponentLocation const& other) const noexcept { return !(*this == other); }

    nstd::cAsciiString toString() const;
    /// Becomes the location that the text tells; what is missing behind the address is empty or 0. Raises
    /// nstd::cRuntimeException, as the conversion or cComponentAddr::fromString() does, and changes nothing
    /// when the process ID is no number or the address is malformed.
    void fromString(nstd::cAsciiString const& text);

    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    /// Reads what was stored with the same preference for labels; the address becomes valid. A failed load
    /// changes nothing.
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    cComponentAddr mAddress;
    nstd::cAsciiString msHostName;
    nstd::cAsciiString msLocalId;
    unsigned int miPid = 0;
};

} // namespace ncs
