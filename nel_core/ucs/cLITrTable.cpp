#include "nel_core/ucs/cLITrTable.h"

#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/ucs/cLIMessage.h"
#include "nel_core/ucs/cLITrItems.h"

namespace nucs {
namespace {

using tPlaces = nstd::tPtrVector<cLITrItems>;
using nstd::tAutoPtr;

constexpr unsigned int kPlaces1 = 25;
constexpr unsigned int kPlaces2 = 23;

unsigned int byteAt(nstd::cAsciiString const& text, unsigned int index)
{
    return static_cast<unsigned char>(text[index]);
}

void makeOwner(tPlaces& places)
{
    places.setGuardMode(tPlaces::gmOwn);
}

void makeOwner(cLITrItems&) { }

template<typename T>
tAutoPtr<T> newOwner()
{
    tAutoPtr<T> made(new T);
    makeOwner(*made);
    return made;
}

// Puts `place` at an index that is empty, with empty places in front of it if need be. Nothing changes when
// there is no memory for them.
template<typename T>
void setPlace(nstd::tPtrVector<T>& places, unsigned int index, tAutoPtr<T> place)
{
    if (index >= places.size())
        places.resize(index + 1);
    places[index] = place.release();
}

template<typename T>
T* tryPlaceAt(nstd::tPtrVector<T> const& places, unsigned int index)
{
    return index < places.size() ? places[index] : nullptr;
}

void store(cLITrItems const& items, nsa::cAbstractSerializer& serializer)
{
    nsa::cContext list(serializer.newContext(nullptr));
    for (auto const* const item : items.list()) {
        serializer.newLabel("Translation");
        nsa::cContext context(serializer.newContext(nullptr));
        *item >> serializer;
        context.release();
    }
    list.release();
}

char const* labelOf(cLITrItems const&)
{
    return "Hash";
}

char const* labelOf(tPlaces const&)
{
    return "Hash-Part";
}

template<typename T>
void store(nstd::tPtrVector<T> const& places, nsa::cAbstractSerializer& serializer)
{
    nsa::cContext context(serializer.newContext("unknown"));
    for (auto const* const place : places) {
        (place == nullptr) >> serializer;
        if (!place)
            continue;
        serializer.newLabel(labelOf(*place));
        store(*place, serializer);
    }
    context.release();
}

void load(cLITrItems& items, nsa::cAbstractDeserializer& deserializer)
{
    nsa::cContext list(deserializer.getContext(nullptr));
    while (!deserializer.eoc()) {
        tAutoPtr<cLITrItem> item(new cLITrItem);
        {
            nsa::cContext context(deserializer.getContext(nullptr));
            *item << deserializer;
            context.release();
        }
        items.add(item);
    }
    list.release();
}

constexpr unsigned int maxPlaces(cLITrItems const*)
{
    return kPlaces2;
}

constexpr unsigned int maxPlaces(tPlaces const*)
{
    return kPlaces1;
}

template<typename T>
void load(nstd::tPtrVector<T>& places, nsa::cAbstractDeserializer& deserializer)
{
    nsa::cContext context(deserializer.getContext(nullptr));
    while (!deserializer.eoc()) {
        if (places.size() == maxPlaces(static_cast<T const*>(nullptr)))
            cSAExceptions::throwEndOfContext();
        bool isEmpty = false;
        isEmpty << deserializer;
        auto& place = places.append(nullptr);
        if (isEmpty)
            continue;
        place = newOwner<T>().release();
        load(*place, deserializer);
    }
    context.release();
}

void add(nstd::cAsciiString& line, char const* text)
{
    line += text;
}

void add(nstd::cAsciiString& line, nstd::cAsciiString const& text)
{
    line += text;
}

void add(nstd::cAsciiString& line, unsigned int number)
{
    line.addUNum32(number, nstd::cNumberConversionFormat(10));
}

template<typename... Parts>
void printLine(Parts const&... parts)
{
    nstd::cAsciiString line;
    (add(line, parts), ...);
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << line;
}

// How far the places of one level are filled.
struct cFill {
    unsigned int used = 0;
    unsigned int unused = 0;

    void count(bool isUsed) { isUsed ? ++used : ++unused; }
    unsigned int percent() const
    {
        return used == 0 ? 0 : static_cast<unsigned int>(100.0 * used / (used + unused));
    }
};

// The sums of a table.
struct cStatistics {
    cFill level1;
    cFill level2;
    unsigned int emptyLists = 0;
    unsigned int usedLists = 0;
    unsigned int collisions = 0;
};

void printItems(cLITrItems const& items, unsigned int i1, unsigned int i2, cStatistics& sums)
{
    unsigned int count = 0;
    for (auto const* const item : items.list()) {
        printLine("Item: ", item->key);
        ++count;
    }
    if (count == 0) {
        printLine("Warning: Unused list detected: ", i1, "/", i2);
        ++sums.emptyLists;
        return;
    }
    ++sums.usedLists;
    if (count == 1)
        return;
    ++sums.collisions;
    printLine("Warning: List at /", i1, "/", i2, " contains collisions (", count, " translations)");
    printLine("         * First key is \"", (*items.list().begin())->key, "\"");
}

void printFill(char const* title, cFill const& fill)
{
    printLine(title, fill.unused, " unused / ", fill.used, " used (", fill.percent(), "%)");
}

} // namespace

unsigned int hashKey1(nstd::cAsciiString const& key)
{
    return key.length() % kPlaces1;
}

unsigned int hashKey2(nstd::cAsciiString const& key)
{
    return key.empty() ? 0 : (byteAt(key, 0) + byteAt(key, key.length() / 2)) % kPlaces2;
}

cLITrTable::cLITrTable()
{
    moPlaces.setGuardMode(nstd::tPtrVector<tPlaces>::gmOwn);
}

cLITrTable::~cLITrTable() = default;

void cLITrTable::swap(cLITrTable& other) noexcept
{
    moPlaces.swapWithOwnership(other.moPlaces);
}

void cLITrTable::addTranslation(nstd::cAsciiString const& key, cString const& translation)
{
    tAutoPtr<cLITrItem> item(new cLITrItem(key, translation));
    auto const i1 = hashKey1(key);
    auto const i2 = hashKey2(key);
    auto* const places = tryPlaceAt(moPlaces, i1);
    auto* const items = places ? tryPlaceAt(*places, i2) : nullptr;
    if (items)
        return items->add(item);

    // What is missing is made from below, so that a failure leaves nothing empty behind.
    auto newItems = newOwner<cLITrItems>();
    newItems->add(item);
    if (places)
        return setPlace(*places, i2, newItems);
    auto newPlaces = newOwner<tPlaces>();
    setPlace(*newPlaces, i2, newItems);
    setPlace(moPlaces, i1, newPlaces);
}

void cLITrTable::clear()
{
    moPlaces.clear();
}

cLITrItem const* cLITrTable::hasTranslation(nstd::cAsciiString const& key) const
{
    auto const* const places = tryPlaceAt(moPlaces, hashKey1(key));
    auto const* const items = places ? tryPlaceAt(*places, hashKey2(key)) : nullptr;
    return items ? items->find(key) : nullptr;
}

bool cLITrTable::translation(cLIMessage const& message, cString& out) const
{
    auto const* const item = hasTranslation(message.key());
    if (item)
        message.translate(item->translation, out);
    else
        message.untranslated(out);
    return item != nullptr;
}

void cLITrTable::printStatistics() const
{
    cStatistics sums;
    for (unsigned int i1 = 0; i1 < moPlaces.size(); ++i1) {
        auto const* const places = moPlaces[i1];
        sums.level1.count(places != nullptr);
        for (unsigned int i2 = 0; places && i2 < places->size(); ++i2) {
            auto const* const items = (*places)[i2];
            sums.level2.count(items != nullptr);
            if (items)
                printItems(*items, i1, i2, sums);
        }
    }
    printLine("Number of translations  : ", sums.usedLists);
    printFill("h1-places               : ", sums.level1);
    printFill("h2-places               : ", sums.level2);
    printLine("Number of used lists    : ", sums.emptyLists);
    printLine("Number of collisions    : ", sums.collisions);
}

nsa::cAbstractSerializer& cLITrTable::operator>>(nsa::cAbstractSerializer& serializer) const
{
    store(moPlaces, serializer);
    return serializer;
}

nsa::cAbstractDeserializer& cLITrTable::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    clear();
    cLITrTable loaded;
    load(loaded.moPlaces, deserializer);
    swap(loaded);
    return deserializer;
}

} // namespace nucs
