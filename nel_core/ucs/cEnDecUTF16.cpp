#include "nel_core/ucs/cEnDecUTF16.h"

#include <algorithm>
#include <cstring>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cConstCStringRef.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cString.h"

namespace nucs {
namespace {

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__,
              "units in the order of the host are little-endian bytes");

enum class eByteOrder { little, big };

constexpr unsigned int kMark = 0xFEFF;
constexpr unsigned int kChunk = 1024; // bytes decoded at a time

[[noreturn]] void raise(char const* key)
{
    nstd::raiseRuntime(nstd::makeMessage(key));
}

bool isSurrogate(unsigned int unit)
{
    return unit >= 0xD800 && unit <= 0xDFFF;
}
bool isHighSurrogate(unsigned int unit)
{
    return (unit & 0xFC00) == 0xD800;
}
bool isLowSurrogate(unsigned int unit)
{
    return (unit & 0xFC00) == 0xDC00;
}
bool isMappable(unsigned int codePoint)
{
    return codePoint <= 0x10FFFF && !isSurrogate(codePoint);
}

// Writes units of two bytes, wherever they are wanted.
class cUnitWriter {
public:
    cUnitWriter(void* target, bool swapped) : mpAt(static_cast<char*>(target)), mbSwapped(swapped) { }

    void put(unsigned int codePoint)
    {
        if (codePoint < 0x10000)
            return putUnit(codePoint);
        putUnit(0xD800 | (codePoint - 0x10000) >> 10);
        putUnit(0xDC00 | (codePoint & 0x3FF));
    }

private:
    void putUnit(unsigned int unit)
    {
        auto const value = static_cast<unsigned short>(unit);
        unsigned short const stored = mbSwapped ? __builtin_bswap16(value) : value;
        std::memcpy(mpAt, &stored, sizeof(stored));
        mpAt += sizeof(stored);
    }

    char* mpAt;
    bool mbSwapped;
};

template<typename Element>
void encodeUTF16(cString const& source, nstd::tArray<Element>& target, unsigned int flags)
{
    auto const* const begin = source.data(true);
    auto const* const end = std::find_if_not(begin, begin + source.length(), isMappable);
    auto const pairs = std::count_if(begin, end, [](unsigned int codePoint) { return codePoint >= 0x10000; });
    bool const marked = (flags & cEnDecUTF16::utf16ByteOrderMark) != 0;
    auto const units =
        static_cast<unsigned long long>(end - begin) + static_cast<unsigned long long>(pairs) + marked;
    auto const elements = units * sizeof(unsigned short) / sizeof(Element);
    if (elements > 0xFFFFFFFFu)
        cSTDExceptions::throwOutOfBounds("tArray", "appendElements");

    auto const at = target.appendElements(static_cast<unsigned int>(elements));
    cUnitWriter writer(target.data(true) + at, (flags & cEnDecUTF16::utf16BigEndian) != 0);
    if (marked)
        writer.put(kMark);
    std::for_each(begin, end, [&](unsigned int codePoint) { writer.put(codePoint); });
    if (end != begin + source.length())
        raise("$MTR$Unable to convert unmappable character to utf16!");
}

// Decodes bytes that are read from a view in chunks, so that characters may span the view's blocks.
class cUTF16Decoder {
public:
    cUTF16Decoder(nstd::tConstArrayRef<char> const& source, cString& target)
        : moSource(source),
          moTarget(target)
    {
    }

    void decode(unsigned int flags)
    {
        if (moSource.length() == 0)
            return;
        refill();
        settleOrder(flags);
        makeRoom();
        while (remaining() != 0)
            moTarget.append(next());
    }

private:
    unsigned int remaining() const { return moSource.length() - miAt; }
    unsigned int unit() const;
    unsigned int next();
    unsigned int nextOfPair(unsigned int high);
    void skipUnit();
    void refill();
    void settleOrder(unsigned int flags);
    void makeRoom();

    nstd::tConstArrayRef<char> const& moSource;
    cString& moTarget;
    eByteOrder meOrder = eByteOrder::little;
    unsigned int miAt = 0;    // in the source
    unsigned int miChunk = 0; // where the chunk begins in the source; at an even distance from miAt
    char mBytes[kChunk] = {};
};

unsigned int cUTF16Decoder::unit() const
{
    unsigned short value;
    std::memcpy(&value, mBytes + (miAt - miChunk), sizeof(value));
    return meOrder == eByteOrder::big ? __builtin_bswap16(value) : value;
}

unsigned int cUTF16Decoder::next()
{
    if (remaining() < 2)
        raise("$MTR$Source buffer exhausted!");
    auto const first = unit();
    if (isSurrogate(first))
        return nextOfPair(first);
    skipUnit();
    return first;
}

unsigned int cUTF16Decoder::nextOfPair(unsigned int high)
{
    if (remaining() < 4)
        raise("$MTR$Unable to read corrupt utf16 data!");
    skipUnit();
    auto const low = unit();
    if (!isHighSurrogate(high) || !isLowSurrogate(low))
        raise("$MTR$Invalid byte sequence while decoding utf16!");
    skipUnit();
    return 0x10000 + ((high & 0x3FF) << 10 | (low & 0x3FF));
}

void cUTF16Decoder::skipUnit()
{
    miAt += 2;
    if (miAt - miChunk == kChunk)
        refill();
}

void cUTF16Decoder::refill()
{
    miChunk = miAt;
    if (remaining() != 0)
        moSource.proxyCopyPartTo(mBytes, miAt, std::min(remaining(), kChunk));
}

void cUTF16Decoder::settleOrder(unsigned int flags)
{
    bool const byMark = (flags & cEnDecUTF16::utf16ByteOrderMark) != 0;
    bool const big = (flags & cEnDecUTF16::utf16BigEndian) != 0;
    bool const little = (flags & cEnDecUTF16::utf16LittleEndian) != 0;
    if (!byMark && (big || little)) {
        meOrder = big ? eByteOrder::big : eByteOrder::little;
        return;
    }
    if (remaining() >= 2 && unit() == __builtin_bswap16(kMark))
        meOrder = eByteOrder::big;
    if (remaining() < 2 || unit() != kMark)
        raise("$MTR$Invalid byte order mark while decoding utf16!");
    skipUnit();
}

// There are at most as many code points as units; what is not needed stays as spare room of the pool.
void cUTF16Decoder::makeRoom()
{
    auto const length = moTarget.length();
    moTarget.appendElements(remaining() / 2);
    moTarget.truncate(length);
}

} // namespace

cEnDecUTF16::cEnDecUTF16(unsigned int flags) : miFlags(flags) { }

nstd::cAsciiString cEnDecUTF16::name() const
{
    return "Endec-UTF16";
}

void cEnDecUTF16::encode(cString const& source, nstd::tArray<char>& target) const
{
    encodeUTF16(source, target, miFlags);
}

void cEnDecUTF16::encode(cString const& source, nstd::tArray<unsigned short>& target) const
{
    encodeUTF16(source, target, miFlags);
}

void cEnDecUTF16::decode(nstd::tConstArrayRef<char> const& source, cString& target) const
{
    cUTF16Decoder(source, target).decode(miFlags);
}

void cEnDecUTF16::encodeCString(cString const& source, nstd::tArray<unsigned short>& target) const
{
    encode(source, target);
    target.append(0);
}

void cEnDecUTF16::decodeCString(unsigned short const* source, cString& target) const
{
    if (!source)
        return;
    unsigned long long units = 0;
    while (source[units] != 0)
        ++units;
    if (units > 0xFFFFFFFFu / 2)
        cSTDExceptions::throwOutOfBounds("cEnDecUTF16", "decodeCString");

    nstd::cConstCStringRef const bytes(reinterpret_cast<char const*>(source),
                                       static_cast<unsigned int>(units * 2));
    decode(nstd::tConstArrayRef<char>(bytes), target);
}

} // namespace nucs
