#include "nel_core/ucs/cLITrItems.h"

#include <algorithm>

namespace nucs {
namespace {

constexpr unsigned int kGrowStep = 2; // four entries

unsigned int hashOf(nstd::cAsciiString const& key)
{
    unsigned int hash = 2166136261u;
    for (char const c : key)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash;
}

} // namespace

cLITrItems::cLITrItems()
{
    moList.setGuardMode(nstd::tPtrList<cLITrItem>::gmOwn);
    maEntries.setGrowStep(kGrowStep);
    maEntries.setFitOnErase(false);
}

void cLITrItems::add(nstd::tAutoPtr<cLITrItem> item)
{
    makeRoom();
    cEntry const entry{hashOf(item->key), item.get()};
    moList.guardedInsert(moList.end(), item);
    maEntries.append(entry);
}

cLITrItem const* cLITrItems::find(nstd::cAsciiString const& key) const
{
    auto const hash = hashOf(key);
    for (auto const& entry : maEntries)
        if (entry.hash == hash && entry.item->key == key)
            return entry.item;
    return nullptr;
}

// For one more entry, by a quarter at least: a long row does not grow by small steps.
void cLITrItems::makeRoom()
{
    auto const count = maEntries.length();
    if (count < maEntries._poolSize())
        return;
    maEntries.appendElements(std::max(1u, count / 4));
    maEntries.truncate(count);
}

} // namespace nucs
