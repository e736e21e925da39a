#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/fwd.h"

namespace ncs {

/// Where a component is inside its process: the queue that it runs in, and its own number there.
///
/// The text form is the queue, a colon and the module, both in decimal, whether the address is valid or not:
/// "1:7" is module 7 of queue 1. The stored form is the module ID and the queue ID, each as `unsigned int`;
/// where labels are welcome, they stand behind "ID" and "Queue".
class NEL_EXPORT cComponentAddr {
public:
    /// Not valid; both IDs are 0.
    cComponentAddr() noexcept = default;
    /// Valid. The queue comes first.
    cComponentAddr(unsigned int queueID, unsigned int moduleID) noexcept
        : miModuleID(moduleID),
          miQueueID(queueID),
          mbValid(true)
    {
    }
    /// Parses the text; raises as fromString() does.
    explicit cComponentAddr(nstd::cAsciiString const& text);
    void swap(cComponentAddr& other) noexcept;

    unsigned int moduleID() const noexcept { return miModuleID; }
    unsigned int queueID() const noexcept { return miQueueID; }
    bool valid() const noexcept { return mbValid; }
    /// Not valid any more; the IDs stay.
    void invalidate() noexcept { mbValid = false; }

    /// Whether both IDs and the validity are equal.
    bool operator==(cComponentAddr const& other) const noexcept
    {
        return miModuleID == other.miModuleID && miQueueID == other.miQueueID && mbValid == other.mbValid;
    }
    bool operator!=(cComponentAddr const& other) const noexcept { return !(*this == other); }
    /// Whether the address is valid, whatever it is compared with.
    bool operator==(bool const&) const noexcept { return mbValid; }

    nstd::cAsciiString toString() const;
    /// Becomes the address that the text tells, which is valid; what follows a second colon is ignored.
    /// Numbers are those of nstd::cNumberConversion, modulo 2^32: nothing behind the colon is module 0.
    /// Raises nstd::cRuntimeException, with the reason linked, and changes nothing when the text tells none.
    void fromString(nstd::cAsciiString const& text);

    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    /// Reads what was stored with the same preference for labels; the address becomes valid. A failed load
    /// changes nothing.
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    unsigned int miModuleID = 0;
    unsigned int miQueueID = 0;
    bool mbValid = false;
};

} // namespace ncs
