#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cString.h"

namespace nucs {

/// One translation: the key of messages and the text that takes its place. The pools of the strings fit when
/// an item is made or loaded: tables hold many of them.
class NEL_EXPORT cLITrItem {
public:
    cLITrItem();
    cLITrItem(nstd::cAsciiString const& messageKey, cString const& text);

    nstd::cAsciiString key; ///< without marker
    cString translation;    ///< with the placeholders of the key

    /// The stored form is the key (ASCII string), then the translation (Unicode string). A failed load keeps
    /// what it has loaded so far.
    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    void fitPools();
};

} // namespace nucs
