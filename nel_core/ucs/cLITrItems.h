#pragma once

#include "nel_core/std/tArray.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tPtrList.h"
#include "nel_core/ucs/cLITrItem.h"

namespace nucs {

/// The items at one place of a translation table, in the order in which they were added. Internal to the
/// table.
///
/// Keys that differ in a number only all come to one place. A row of hashes tells them apart: to walk the
/// list takes ten times as long.
class cLITrItems {
public:
    cLITrItems();

    /// Takes the item over; nothing changes when there is no memory.
    void add(nstd::tAutoPtr<cLITrItem> item);
    /// The first item with this key, or null.
    cLITrItem const* find(nstd::cAsciiString const& key) const;
    nstd::tPtrList<cLITrItem> const& list() const noexcept { return moList; }

private:
    struct cEntry {
        unsigned int hash;
        cLITrItem const* item;
    };

    void makeRoom();

    nstd::tPtrList<cLITrItem> moList; ///< owning
    nstd::tArray<cEntry> maEntries;   ///< one for each item
};

} // namespace nucs
