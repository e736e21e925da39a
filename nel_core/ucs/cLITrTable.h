#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/tPtrVector.h"
#include "nel_core/ucs/cLITrItem.h"
#include "nel_core/ucs/fwd.h"

namespace nucs {

class cLITrItems;

/// The place of a key in the first level of a table, below 25: its length modulo 25.
NEL_EXPORT unsigned int hashKey1(nstd::cAsciiString const& key);
/// The place of a key in the second level, below 23: the sum of its first and its middle byte modulo 23, as
/// unsigned bytes; 0 for the empty key.
NEL_EXPORT unsigned int hashKey2(nstd::cAsciiString const& key);

/// The translations of messages by their keys: a hash of two levels whose places hold lists of items.
///
/// A table only grows, until it is cleared or loaded. Of several translations of one key the first counts;
/// the others are kept, stored and counted, but never found. Not synchronised.
class NEL_EXPORT cLITrTable {
public:
    cLITrTable();
    ~cLITrTable();
    cLITrTable(cLITrTable const&) = delete;
    cLITrTable& operator=(cLITrTable const&) = delete;
    /// Exchanges the contents; items keep their addresses.
    void swap(cLITrTable& other) noexcept;

    /// Adds a translation behind those there are. Nothing changes when there is no memory for it.
    void addTranslation(nstd::cAsciiString const& key, cString const& translation);
    /// Deletes all items.
    void clear();

    /// The first item with this key, or null. Valid until the table is cleared, loaded or destroyed.
    cLITrItem const* hasTranslation(nstd::cAsciiString const& key) const;
    /// Replaces `out` by the message's translation, or, with the result false, by its own text.
    bool translation(cLIMessage const& message, cString& out) const;
    /// Writes every key, the lists that are empty or have several items, and sums to the debug output.
    void printStatistics() const;

    /// The stored form is a context ("unknown") with a bool for every place of the first level: true for an
    /// empty one; else the label "Hash-Part" and a context ("unknown") follow, with a bool for every place of
    /// the second level. There, false is followed by the label "Hash" and an unnamed context that holds, for
    /// each item, the label "Translation" and an unnamed context with the item. The labels are always
    /// written.
    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    /// Clears the table, then loads it; a load that fails leaves it empty. More places than keys can have
    /// raise cSAExceptions::throwEndOfContext().
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    using tPlaces = nstd::tPtrVector<cLITrItems>;

    nstd::tPtrVector<tPlaces> moPlaces; ///< owns all that hangs on it; null pointers are empty places
};

} // namespace nucs
