#pragma once

#include "nel_core/rmi/cPublicDescription.h"
#include "nel_core/rmi/fwd.h"
#include "nel_core/std/tAutoPtr.h"

namespace nrmi {

/// A slot that can be found and called by its name; belongs to a connectable.
///
/// Stored form: name, return type name, parameter type names and description as ASCII strings, the
/// parameters (a context named "unknown" that holds the values), the return value. The slot call does not
/// travel.
class NEL_EXPORT cPublicSlot : public cPublicDescription {
public:
    /// Takes the slot call over; without one the assertion "mpSlot.get() != 0" fails.
    cPublicSlot(nstd::cAsciiString const& name, nstd::cAsciiString const& returnTypeName,
                nstd::cAsciiString const& paramTypeNames, nstd::cAsciiString const& description,
                nstd::tAutoPtr<cAbstractSlotCall> slot);
    /// The same with a description that is read.
    cPublicSlot(nsa::cAbstractDeserializer& deserializer, nstd::tAutoPtr<cAbstractSlotCall> slot);
    ~cPublicSlot();

    /// The slot call, owned by the public slot; never null.
    cAbstractSlotCall* slot() const noexcept { return mpSlot.get(); }

    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    /// Replaces the description; nothing changes when reading fails.
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    cPublicSlot();

    nstd::tAutoPtr<cAbstractSlotCall> mpSlot;
};

} // namespace nrmi
