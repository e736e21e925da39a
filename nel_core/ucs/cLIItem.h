#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cString.h"

/// One value of a message with the placeholder that it fills.
struct NEL_EXPORT cLIItem {
    /// What the value was before it became text; its number is part of the stored form.
    enum liType : unsigned int {
        liString = 0,
        liInteger = 1,
        liDouble = 2,
    };

    nstd::cAsciiString name; ///< the placeholder with its opening percent sign and without the closing one
    nucs::cString value;
    liType type = liString;

    /// The stored form is the name, the value and the type as `unsigned int`. A failed load keeps what it has
    /// loaded so far.
    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);
};
