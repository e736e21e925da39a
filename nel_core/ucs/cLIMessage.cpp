#include "nel_core/ucs/cLIMessage.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "nel_core/pi/cAbstractOut.h"
#include "nel_core/pi/cSystemState.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cNumberConversion.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tBounds.h"
#include "nel_core/std/tList.h"
#include "nel_core/ucs/cLIItem.h"
#include "nel_core/ucs/cLILocale.h"
#include "nel_core/ucs/cString.h"

namespace nucs {
namespace {

constexpr char kTranslatable[] = "$MTR$";
constexpr char kNotTranslatable[] = "$MNTR$";
constexpr char kMissing[] = "???";
constexpr unsigned int kBackslash = '\\';
constexpr unsigned int kCopiedMax = 1u << 16; // code points of a text that is worth a pool that fits

// A character of a key or of a translation, as text.
unsigned int codePointOf(char byte)
{
    auto const value = static_cast<unsigned char>(byte);
    return value < 0x80 ? value : '?';
}

unsigned int codePointOf(unsigned int codePoint)
{
    return codePoint;
}

// Finds the next placeholder from `position` on and moves the position to where the search stopped: behind
// the closing percent sign, at the space that ends the name, or at the end. Only the low 8 bits of a
// character count.
template<typename Char>
bool getNextArg(Char const* text, unsigned int length, unsigned int& position, unsigned int& start,
                nstd::cAsciiString& name)
{
    if (name.length() != 0)
        name.truncate(0);
    start = 0;
    bool escaped = false;
    bool inside = false;
    for (; position < length; ++position) {
        auto const c = static_cast<char>(codePointOf(text[position]) & 0xFF);
        if (escaped) {
            escaped = false;
            continue;
        }
        if (inside && c == ' ')
            break;
        if (inside && c == '%') {
            ++position;
            break;
        }
        if (!inside && c == '%') {
            inside = true;
            start = position;
        }
        if (inside)
            name += c;
        escaped = c == '\\';
    }
    return inside;
}

// Collects text from which the escapes have been removed.
class cUnescaped {
public:
    explicit cUnescaped(unsigned int expectedLength)
    {
        moText.setGrowStep(6);
        makeRoom(expectedLength);
    }

    template<typename Char>
    void add(Char const* text, unsigned int length)
    {
        for (unsigned int i = 0; i < length; ++i)
            add(codePointOf(text[i]));
    }

    // Adds text that comes out as it is: its backslashes count as doubled ones.
    void addVerbatim(cString const& text)
    {
        makeRoom(text.length());
        for (unsigned int i = 0; i < text.length(); ++i) {
            add(text[i]);
            if (text[i] == kBackslash)
                add(kBackslash);
        }
    }

    // Replaces `out` by the text, which is gone then; the growth settings of `out` stay.
    void moveTo(cString& out)
    {
        if (moText.length() <= kCopiedMax) {
            out = moText.array();
            return;
        }
        moText.setGrowStep(out.growStep());
        moText.setFitOnErase(out.fitOnErase());
        moText.optimizeMemory();
        out.swap(moText);
    }

private:
    // By a quarter at least: a long text does not grow by small steps.
    void makeRoom(unsigned int count)
    {
        if (count <= moText._poolSize() - moText.length())
            return;
        auto const length = moText.appendElements(std::max(count, moText.length() / 4));
        moText.truncate(length);
    }

    void add(unsigned int codePoint)
    {
        mbEscaped = !mbEscaped && codePoint == kBackslash;
        if (mbEscaped)
            return;
        if (moText.length() == moText._poolSize())
            makeRoom(1);
        moText.append(codePoint);
    }

    cString moText;
    bool mbEscaped = false;
};

// The values of a message while one text is made of them, found by the names of their placeholders.
//
// A message from outside may have any number of values and of placeholders: all but the first few values are
// sorted once the first few do not do, and what showing values again and again may add is limited.
class cValues {
public:
    // `repeatable`: how many code points repetitions may still add.
    cValues(nstd::tList<cLIItem> const& items, unsigned int& repeatable)
        : mItems(items),
          miRepeatable(repeatable)
    {
    }
    cValues(cValues const&) = delete;
    cValues& operator=(cValues const&) = delete;

    // The first value of that name; null when there is none, or when it is not to be repeated any more.
    cString const* take(nstd::cAsciiString const& name)
    {
        unsigned int index = 0;
        for (auto const& item : mItems) {
            if (index == kFew)
                return takeSorted(name);
            if (item.name == name)
                return take(item, mabIsShown[index]);
            ++index;
        }
        return nullptr;
    }

private:
    struct cEntry {
        cLIItem const* item;
        unsigned int index; // in the list: the first of a name counts
        bool isShown;
    };
    static constexpr unsigned int kFew = 8;

    static bool isBefore(cEntry const& left, cEntry const& right)
    {
        auto const relation = left.item->name.relation(right.item->name);
        return relation < 0 || (relation == 0 && left.index < right.index);
    }

    cString const* take(cLIItem const& item, bool& isShown)
    {
        if (!std::exchange(isShown, true))
            return &item.value;
        if (item.value.length() > miRepeatable)
            return nullptr;
        miRepeatable -= item.value.length();
        return &item.value;
    }

    cString const* takeSorted(nstd::cAsciiString const& name)
    {
        if (!mpSorted)
            sort();
        auto* const end = mpSorted.get() + miCount;
        auto* const entry =
            std::lower_bound(mpSorted.get(), end, name, [](cEntry const& at, auto const& wanted) {
                return at.item->name.relation(wanted) < 0;
            });
        return entry != end && entry->item->name == name ? take(*entry->item, entry->isShown) : nullptr;
    }

    void sort()
    {
        mpSorted = nstd::tAutoPtr<cEntry>(new cEntry[mItems.size()], nstd::tAutoPtrType::ptArray);
        unsigned int index = 0;
        for (auto const& item : mItems) {
            if (index >= kFew)
                mpSorted[miCount++] = cEntry{&item, index, false};
            ++index;
        }
        std::sort(mpSorted.get(), mpSorted.get() + miCount, &isBefore);
    }

    nstd::tList<cLIItem> const& mItems;
    unsigned int& miRepeatable;
    bool mabIsShown[kFew] = {};      // of the first few
    nstd::tAutoPtr<cEntry> mpSorted; // the others; null until they are wanted
    unsigned int miCount = 0;        // of the others
};

bool removeSpecial(char const*& text, unsigned int& length, char const* marker)
{
    auto const markerLength = static_cast<unsigned int>(std::strlen(marker));
    if (length < markerLength || std::memcmp(text, marker, markerLength) != 0)
        return false;
    text += markerLength;
    length -= markerLength;
    return true;
}

} // namespace

class cLIMessage::cImpl {
public:
    cImpl() = default;
    explicit cImpl(nstd::cAsciiString const& key);
    cImpl(cImpl const& other);

    void addText(char const* text, unsigned int length);
    template<typename Fill>
    void bind(cLIItem::liType type, Fill const& fill);
    void bind(cString const& text);
    void bind(char const* text, unsigned int length, cLIItem::liType type);
    void bind(nstd::cAsciiString const& number, cLIItem::liType type)
    {
        bind(number.c_str(), number.length(), type);
    }
    void setFormat(nstd::cNumberConversionFormat const& format);

    nstd::cAsciiString const& key() const { return msKey; }
    bool isTranslatable() const { return mbTranslatable; }
    nstd::cNumberConversionFormat const* format() const { return mpFormat.get(); }
    void untranslated(cString& out, unsigned int& repeatable) const
    {
        translate(msKey.c_str(), msKey.length(), out, repeatable);
    }
    template<typename Char>
    void translate(Char const* source, unsigned int length, cString& out, unsigned int& repeatable) const;
    void store(nsa::cAbstractSerializer& serializer) const;
    void load(nsa::cAbstractDeserializer& deserializer);

private:
    void setKey(char const* text, unsigned int length);

    nstd::cAsciiString msKey;
    unsigned int miScanPosition = 0; // in the key, where the search for the next placeholder starts
    bool mbTranslatable = true;
    nstd::tList<cLIItem> moArguments;
    nstd::tAutoPtr<nstd::cNumberConversionFormat> mpFormat; // null: the system's default
};

cLIMessage::cImpl::cImpl(nstd::cAsciiString const& key) : msKey(key) { }

cLIMessage::cImpl::cImpl(cImpl const& other)
    : msKey(other.msKey),
      miScanPosition(other.miScanPosition),
      mbTranslatable(other.mbTranslatable),
      moArguments(other.moArguments)
{
    if (other.format())
        setFormat(*other.format());
}

void cLIMessage::cImpl::addText(char const* text, unsigned int length)
{
    if (msKey.length() == 0)
        setKey(text, length);
    else
        bind(text, length, cLIItem::liString);
}

void cLIMessage::cImpl::setKey(char const* text, unsigned int length)
{
    removeSpecial(text, length, kTranslatable);
    bool const fixed = removeSpecial(text, length, kNotTranslatable);
    msKey.append(text, length);
    if (fixed)
        mbTranslatable = false;
    miScanPosition = 0;
}

// Fills the item where it will stay: every copy of one takes memory three times. `fill` sets the value; it is
// asked only if there is a placeholder.
template<typename Fill>
void cLIMessage::cImpl::bind(cLIItem::liType type, Fill const& fill)
{
    static cLIItem const& blank = *new cLIItem; // messages may outlive every static object
    auto& item = moArguments.append(blank);
    auto position = miScanPosition;
    unsigned int start = 0;
    bool found = false;
    try {
        found = getNextArg(msKey.c_str(), msKey.length(), position, start, item.name);
        if (found)
            fill(item.value);
    } catch (...) {
        moArguments.erase(moArguments.last());
        throw;
    }
    item.type = type;
    miScanPosition = position;
    if (!found)
        moArguments.erase(moArguments.last());
}

void cLIMessage::cImpl::bind(cString const& text)
{
    bind(cLIItem::liString, [&](cString& value) { value = text.array(); });
}

void cLIMessage::cImpl::bind(char const* text, unsigned int length, cLIItem::liType type)
{
    bind(type, [=](cString& value) {
        value.setSize(length);
        std::transform(text, text + length, value.begin(), [](char byte) { return codePointOf(byte); });
    });
}

void cLIMessage::cImpl::setFormat(nstd::cNumberConversionFormat const& format)
{
    mpFormat = nstd::tAutoPtr<nstd::cNumberConversionFormat>(new nstd::cNumberConversionFormat(format));
}

// Replaces the placeholders of `source` from left to right; what has been put in is not searched.
template<typename Char>
void cLIMessage::cImpl::translate(Char const* source, unsigned int length, cString& out,
                                  unsigned int& repeatable) const
{
    cUnescaped text(length);
    cValues values(moArguments, repeatable);
    nstd::cAsciiString name;
    name.setFitOnErase(false);
    unsigned int literal = 0;
    unsigned int position = 0;
    unsigned int start = 0;
    while (getNextArg(source, length, position, start, name)) {
        text.add(source + literal, start - literal);
        if (auto const* const value = values.take(name))
            text.addVerbatim(*value);
        else
            text.add(kMissing, sizeof(kMissing) - 1);
        literal = position;
    }
    text.add(source + literal, length - literal);
    text.moveTo(out);
}

void cLIMessage::cImpl::store(nsa::cAbstractSerializer& serializer) const
{
    nsa::cContext outer(serializer.newContext(nullptr));
    nsa::cContext inner(serializer.newContext(nullptr));
    msKey >> serializer;
    miScanPosition >> serializer;
    mbTranslatable >> serializer;
    moArguments >> serializer;
    inner.release();
    outer.release();
}

void cLIMessage::cImpl::load(nsa::cAbstractDeserializer& deserializer)
{
    nsa::cContext outer(deserializer.getContext(nullptr));
    nsa::cContext inner(deserializer.getContext(nullptr));
    msKey << deserializer;
    miScanPosition << deserializer;
    mbTranslatable << deserializer;
    moArguments << deserializer;
    inner.release();
    outer.release();
}

cLIMessage::cLIMessage() noexcept : mpImpl(nullptr) { }

cLIMessage::cLIMessage(nstd::cAsciiString const& key) : mpImpl(new cImpl(key)) { }

cLIMessage::cLIMessage(cLIMessage const& other)
    : mpImpl(other.mpImpl ? new cImpl(*other.mpImpl) : nullptr) { }

cLIMessage::cLIMessage(cLIMessage&& other) noexcept : mpImpl(std::exchange(other.mpImpl, nullptr)) { }

cLIMessage::~cLIMessage()
{
    delete mpImpl;
}

cLIMessage& cLIMessage::operator=(cLIMessage const& other)
{
    cLIMessage copy(other);
    swap(copy);
    return *this;
}

cLIMessage& cLIMessage::operator=(cLIMessage&& other) noexcept
{
    cLIMessage taken(std::move(other));
    swap(taken);
    return *this;
}

void cLIMessage::swap(cLIMessage& other) noexcept
{
    std::swap(mpImpl, other.mpImpl);
}

cLIMessage::cImpl const& cLIMessage::impl() const
{
    static cImpl const& empty = *new cImpl; // messages may outlive every static object
    return mpImpl ? *mpImpl : empty;
}

cLIMessage::cImpl& cLIMessage::ownImpl()
{
    if (!mpImpl)
        mpImpl = new cImpl;
    return *mpImpl;
}

cLIMessage& cLIMessage::operator<<(nstd::cAsciiString const& text)
{
    ownImpl().addText(text.c_str(), text.length());
    return *this;
}

cLIMessage& cLIMessage::operator<<(char const* text)
{
    ownImpl().addText(text, text ? nstd::tBounds::narrow(std::strlen(text), "tArray", "append") : 0);
    return *this;
}

cLIMessage& cLIMessage::operator<<(cString const& text)
{
    if (mpImpl)
        mpImpl->bind(text);
    return *this;
}

cLIMessage& cLIMessage::operator<<(int number)
{
    return *this << static_cast<long long>(number);
}

cLIMessage& cLIMessage::operator<<(unsigned int number)
{
    return *this << static_cast<unsigned long long>(number);
}

cLIMessage& cLIMessage::operator<<(long long number)
{
    if (mpImpl)
        mpImpl->bind(nstd::cNumberConversion::toString(number, numberConversionFormat()), cLIItem::liInteger);
    return *this;
}

cLIMessage& cLIMessage::operator<<(unsigned long long number)
{
    if (mpImpl)
        mpImpl->bind(nstd::cNumberConversion::toString(number, numberConversionFormat()), cLIItem::liInteger);
    return *this;
}

cLIMessage& cLIMessage::operator<<(double number)
{
    if (mpImpl)
        mpImpl->bind(nstd::cNumberConversion::toStringFromDouble(number, numberConversionFormat()),
                     cLIItem::liDouble);
    return *this;
}

cLIMessage& cLIMessage::operator<<(nstd::cNumberConversionFormat const& format)
{
    ownImpl().setFormat(format);
    return *this;
}

nstd::cNumberConversionFormat const& cLIMessage::numberConversionFormat() const
{
    auto const* const format = mpImpl ? mpImpl->format() : nullptr;
    return format ? *format : nstd::cNumberConversionFormat::getGlobalDefaultNumberConversionFormat();
}

nstd::cAsciiString const& cLIMessage::key() const
{
    return impl().key();
}

void cLIMessage::translate(cString const& translation, cString& out) const
{
    unsigned int repeatable = kRepeatedMax;
    if (impl().isTranslatable())
        impl().translate(translation.data(true), translation.length(), out, repeatable);
    else
        impl().untranslated(out, repeatable);
}

void cLIMessage::untranslated(cString& out) const
{
    unsigned int repeatable = kRepeatedMax;
    impl().untranslated(out, repeatable);
}

void cLIMessage::untranslated(cString& out, unsigned int& repeatable) const
{
    impl().untranslated(out, repeatable);
}

void cLIMessage::untranslated(nstd::cAsciiString& out) const
{
    cString text;
    untranslated(text);
    out = text.ascii();
}

nsa::cAbstractSerializer& cLIMessage::operator>>(nsa::cAbstractSerializer& serializer) const
{
    impl().store(serializer);
    return serializer;
}

nsa::cAbstractDeserializer& cLIMessage::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    ownImpl().load(deserializer);
    return deserializer;
}

npi::cAbstractOut& operator<<(npi::cAbstractOut& out, cLIMessage const& message)
{
    cString text;
    if (auto const* const locale = npi::systemLocale())
        locale->translate(message, text, nullptr);
    else
        message.untranslated(text);
    return out << text;
}

} // namespace nucs
