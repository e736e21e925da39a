#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/cAsciiString.h"

namespace ncs {

/// Describes an interface that is provided, or one that is required.
///
/// Stored form: the type as `unsigned int`, name, author, version as `unsigned int`, description; without
/// labels or a context.
class NEL_EXPORT cInterfaceDesc {
public:
    /// The two sides of an interface.
    enum InterfaceType : unsigned int {
        itProvided = 0,
        itRequired = 1,
    };

    /// Required, with empty texts and version 0.
    cInterfaceDesc();
    cInterfaceDesc(InterfaceType type, nstd::cAsciiString const& name, nstd::cAsciiString const& author,
                   unsigned int version, nstd::cAsciiString const& description);
    cInterfaceDesc(cInterfaceDesc const&) = default;
    cInterfaceDesc(cInterfaceDesc&&) = default;
    cInterfaceDesc& operator=(cInterfaceDesc other) noexcept;
    void swap(cInterfaceDesc& other) noexcept;

    InterfaceType type() const noexcept { return meType; }
    /// The key by which interfaces are found.
    nstd::cAsciiString const& name() const noexcept { return msName; }
    nstd::cAsciiString const& author() const noexcept { return msAuthor; }
    unsigned int version() const noexcept { return miVersion; }
    nstd::cAsciiString const& description() const noexcept { return msDescription; }

    /// Whether all but the descriptions are equal.
    bool operator==(cInterfaceDesc const& other) const noexcept;
    bool operator!=(cInterfaceDesc const& other) const noexcept { return !(*this == other); }

    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    /// Raises cNCSExceptions::throwInterfaceLoadError() for an unknown type. A failed load changes nothing.
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    InterfaceType meType = itRequired;
    nstd::cAsciiString msName;
    nstd::cAsciiString msAuthor;
    unsigned int miVersion = 0;
    nstd::cAsciiString msDescription;
};

} // namespace ncs
