#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/cAsciiString.h"

namespace nrmi {

/// What is told of one parameter or of the return value of a public slot or signal.
///
/// Stored form: type name and description as ASCII strings, then the two flags.
class NEL_EXPORT cSSValue {
public:
    /// No names, neither alterable nor void.
    cSSValue();
    cSSValue(cSSValue const&) = default;
    cSSValue(cSSValue&&) = default;
    cSSValue& operator=(cSSValue const&) = default;
    cSSValue& operator=(cSSValue&&) = default;
    ~cSSValue();
    void swap(cSSValue& other) noexcept;

    /// Replaces all but the description. `alterable`: the callee may change the value and it travels back;
    /// `isVoid`: there is no value at all.
    void set(nstd::cAsciiString const& typeName, bool alterable, bool isVoid);
    /// A text for people.
    void setDescription(nstd::cAsciiString const& description);

    nstd::cAsciiString const& typeName() const noexcept { return msTypeName; }
    nstd::cAsciiString const& description() const noexcept { return msDescription; }
    bool isAlterable() const noexcept { return mbAlterable; }
    bool isVoid() const noexcept { return mbVoid; }

    /// Equal are values with the same four fields.
    bool operator==(cSSValue const& other) const;
    bool operator!=(cSSValue const& other) const { return !(*this == other); }

    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    /// Nothing changes when reading fails.
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    nstd::cAsciiString msTypeName;
    nstd::cAsciiString msDescription;
    bool mbAlterable = false;
    bool mbVoid = false;
};

} // namespace nrmi
