#include "nel_core/ucs/cEnDecUTF8.h"

#include <algorithm>
#include <cstring>
#include <emmintrin.h>
#include <utility>

#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cString.h"
#include "nel_core/ucs/cUCSExceptions.h"

namespace nucs {
namespace {

constexpr unsigned int kMaxFollowing = 3;
constexpr unsigned int kMaxEncoded = 5;
constexpr unsigned int kLane = 16; // characters that the fast paths take at once

// What the marker bits of a sequence add up to, by the number of following bytes.
constexpr unsigned int kMarkers[kMaxFollowing + 1] = {0, 0x3080, 0xE2080, 0x3C82080};

template<typename T>
unsigned int countOf(T const* begin, T const* end)
{
    return static_cast<unsigned int>(end - begin);
}

unsigned int byteAt(char const* text, unsigned int index)
{
    return static_cast<unsigned char>(text[index]);
}

// The number of bytes that belong to a lead byte: one less than its leading ones. A stray continuation byte
// stands alone.
constexpr unsigned int followingOf(unsigned int lead)
{
    return lead < 0xC0 ? 0 : static_cast<unsigned int>(__builtin_clz(~(lead << 24))) - 1;
}
static_assert(followingOf(0xBF) == 0 && followingOf(0xDF) == 1 && followingOf(0xEF) == 2, "short leads");
static_assert(followingOf(0xF7) == 3 && followingOf(0xFB) == 4 && followingOf(0xFD) == 5, "long leads");
static_assert(followingOf(0xFE) == 6 && followingOf(0xFF) == 7, "leads that no encoder writes");

[[noreturn]] void throwUnsupportedLength(unsigned int length)
{
    nstd::raiseRuntime(nstd::makeMessage("$MTR$UTF8 decode error - unsupported length of %length%!", length));
}

unsigned int decodeChar(char const* text, unsigned int& index)
{
    unsigned int at = index;
    unsigned int codePoint = byteAt(text, at);
    if (codePoint == 0)
        cEnDecUTF8::throwUEOD(at);

    auto const following = followingOf(codePoint);
    if (following > kMaxFollowing)
        throwUnsupportedLength(following);
    for (unsigned int i = 0; i < following; ++i) {
        auto const byte = byteAt(text, ++at);
        if (byte == 0)
            cEnDecUTF8::throwUEOD(at);
        codePoint = (codePoint << 6) + byte;
    }
    index = at + 1;
    return codePoint - kMarkers[following];
}

__m128i load(void const* lane)
{
    return _mm_loadu_si128(static_cast<__m128i const*>(lane));
}

void store(void* lane, __m128i value)
{
    _mm_storeu_si128(static_cast<__m128i*>(lane), value);
}

template<unsigned int Following>
using tBytesOf = std::make_integer_sequence<unsigned int, Following + 1>;

// Bytes on their way to code points, with room for one from each byte. Takes steps of constant width behind
// branches, so that a character need not wait for the length of the one before it.
struct cDecodeRun {
    char const* in;
    char const* inEnd;
    unsigned int* out;

    void decode();

private:
    bool takeAscii();
    bool takeChar();
    template<unsigned int... I>
    bool take(std::integer_sequence<unsigned int, I...>);
};

// Takes a lane if it is all ASCII.
inline bool cDecodeRun::takeAscii()
{
    if (countOf(in, inEnd) < kLane)
        return false;
    auto const zero = _mm_setzero_si128();
    auto const bytes = load(in);
    if (_mm_movemask_epi8(_mm_cmpgt_epi8(bytes, zero)) != 0xFFFF)
        return false;
    auto const low = _mm_unpacklo_epi8(bytes, zero);
    auto const high = _mm_unpackhi_epi8(bytes, zero);
    store(out, _mm_unpacklo_epi16(low, zero));
    store(out + 4, _mm_unpackhi_epi16(low, zero));
    store(out + 8, _mm_unpacklo_epi16(high, zero));
    store(out + 12, _mm_unpackhi_epi16(high, zero));
    in += kLane;
    out += kLane;
    return true;
}

// Takes a character whose bytes are given by their indices.
template<unsigned int... I>
inline bool cDecodeRun::take(std::integer_sequence<unsigned int, I...>)
{
    constexpr unsigned int kCount = sizeof...(I);
    if (countOf(in, inEnd) < kCount || !((in[I] != 0) && ...))
        return false;
    unsigned int codePoint = 0;
    ((codePoint = (codePoint << 6) + byteAt(in, I)), ...);
    *out++ = codePoint - kMarkers[kCount - 1];
    in += kCount;
    return true;
}

// Takes one character; not one that reaches beyond the run or that decodeChar() would refuse.
inline bool cDecodeRun::takeChar()
{
    auto const lead = byteAt(in, 0);
    if (lead < 0xC0)
        return take(tBytesOf<0>());
    if (lead < 0xE0)
        return take(tBytesOf<1>());
    if (lead < 0xF0)
        return take(tBytesOf<2>());
    return lead < 0xF8 && take(tBytesOf<3>());
}

void cDecodeRun::decode()
{
    while (in != inEnd) {
        if (!(static_cast<signed char>(*in) > 0 && takeAscii()) && !takeChar())
            return;
    }
}

// Cuts a text that grew for more than it got: what the pool gained by that goes back, in whole grow steps.
void cutGrown(cString& text, unsigned int length, unsigned int oldPoolSize)
{
    auto const step = 1ULL << (text.growStep() & 31u);
    auto const needed = (length + step - 1) & ~(step - 1);
    if (needed < text._poolSize() && oldPoolSize < text._poolSize()) {
        text.truncate(std::max(static_cast<unsigned int>(needed), oldPoolSize));
        text.optimizeMemory();
    }
    text.truncate(length);
}

// Decodes up to the end of the piece or to a character that needs decodeChar(), and gives the number of bytes
// taken. There are at most as many characters as bytes.
unsigned int decodePiece(char const* text, unsigned int count, cString& target)
{
    auto const poolSize = target._poolSize();
    auto const start = target.appendElements(count);
    cDecodeRun run{text, text + count, target.data() + start};
    run.decode();
    cutGrown(target, countOf(target.data(), run.out), poolSize);
    return countOf(text, run.in);
}

// Decodes one character across the border of pieces, or raises what is wrong with it.
unsigned int decodeNext(nstd::tConstArrayRef<char> const& source, unsigned int at, cString& target)
{
    char text[8] = {};
    source.proxyCopyPartTo(text, at, std::min(source.length() - at, static_cast<unsigned int>(sizeof(text))));
    unsigned int taken = 0;
    target.append(cEnDecUTF8::decodeUTF8(text, taken));
    return taken;
}

// Writes a lead byte and the following bytes, which are given by how many of them come behind.
template<unsigned int... Behind>
inline char* encodeLong(char* out, unsigned int codePoint, unsigned int lead,
                        std::integer_sequence<unsigned int, Behind...>)
{
    constexpr unsigned int kFollowing = sizeof...(Behind);
    *out++ = static_cast<char>(lead | codePoint >> 6 * kFollowing);
    ((*out++ = static_cast<char>(0x80 | (codePoint >> 6 * (kFollowing - 1 - Behind) & 0x3F))), ...);
    return out;
}

// Gives the end of the bytes written.
inline char* encodeInto(char* out, unsigned int codePoint)
{
    if (codePoint < 0x80) {
        *out++ = static_cast<char>(codePoint);
        return out;
    }
    if (codePoint < 0x800)
        return encodeLong(out, codePoint, 0xC0, tBytesOf<0>());
    if (codePoint < 0x10000)
        return encodeLong(out, codePoint, 0xE0, tBytesOf<1>());
    if (codePoint < 0x200000)
        return encodeLong(out, codePoint, 0xF0, tBytesOf<2>());
    return encodeLong(out, codePoint, 0xF8, tBytesOf<3>());
}

// Writes the ASCII in front of everything else and gives its length.
unsigned int encodeAsciiPrefix(char* out, unsigned int const* in, unsigned int count)
{
    unsigned int at = 0;
    for (; count - at >= kLane; at += kLane) {
        auto const low = _mm_packs_epi32(load(in + at), load(in + at + 4));
        auto const high = _mm_packs_epi32(load(in + at + 8), load(in + at + 12));
        // Packed words keep what is greater than a byte: as their greatest or, from 2^31 on, their least
        // value.
        auto const ascii = _mm_cmpeq_epi16(_mm_srli_epi16(_mm_or_si128(low, high), 7), _mm_setzero_si128());
        if (_mm_movemask_epi8(ascii) != 0xFFFF)
            break;
        store(out + at, _mm_packus_epi16(low, high));
    }
    for (; at < count && in[at] < 0x80; ++at)
        out[at] = static_cast<char>(in[at]);
    return at;
}

// Writes four code points if they are all ASCII.
inline bool encodeAsciiFour(char* out, unsigned int const* in)
{
    auto const all = load(in);
    if (_mm_movemask_epi8(_mm_cmpeq_epi32(_mm_srli_epi32(all, 7), _mm_setzero_si128())) != 0xFFFF)
        return false;
    auto const bytes = _mm_cvtsi128_si32(_mm_packus_epi16(_mm_packs_epi32(all, all), all));
    std::memcpy(out, &bytes, sizeof(bytes));
    return true;
}

void encodeRun(char* out, unsigned int const* in, unsigned int const* inEnd)
{
    while (in != inEnd) {
        if (*in < 0x80 && countOf(in, inEnd) >= 4 && encodeAsciiFour(out, in)) {
            in += 4;
            out += 4;
        } else {
            out = encodeInto(out, *in++);
        }
    }
}

// The bytes that the code points take, eight code points at a time: one each, and one more for every bound
// that they reach. Shifted down by seven bits the bounds fit into 16 bits, and so does, saturated, what lies
// above them.
unsigned long long encodedLength(unsigned int const* text, unsigned int count)
{
    auto more = _mm_setzero_si128();
    unsigned int at = 0;
    for (; count - at >= 8; at += 8) {
        auto const shifted =
            _mm_packs_epi32(_mm_srli_epi32(load(text + at), 7), _mm_srli_epi32(load(text + at + 4), 7));
        auto const reaches = [&](int bound) {
            return _mm_cmpgt_epi16(shifted, _mm_set1_epi16(static_cast<short>((bound >> 7) - 1)));
        };
        auto const low = _mm_add_epi16(reaches(0x80), reaches(0x800));
        auto const high = _mm_add_epi16(reaches(0x10000), reaches(0x200000));
        more = _mm_sub_epi32(more, _mm_madd_epi16(_mm_add_epi16(low, high), _mm_set1_epi16(1)));
    }
    unsigned int sums[4];
    store(sums, more);
    unsigned long long length = at;
    for (auto const sum : sums)
        length += sum;
    char bytes[kMaxEncoded];
    for (; at < count; ++at)
        length += countOf(bytes, encodeInto(bytes, text[at]));
    return length;
}

} // namespace

nstd::cAsciiString cEnDecUTF8::name() const
{
    return "Endec-UTF8";
}

void cEnDecUTF8::encode(cString const& source, nstd::tArray<char>& target) const
{
    auto const* const text = source.data(true);
    auto const count = source.length();
    auto const start = target.appendElements(count); // enough for ASCII, which so needs no counting
    auto const ascii = encodeAsciiPrefix(target.data(true) + start, text, count);
    if (ascii == count)
        return;

    target.truncate(start + ascii);
    auto const length = encodedLength(text + ascii, count - ascii);
    if (length > 0xFFFFFFFFu)
        cSTDExceptions::throwOutOfBounds("tArray", "appendElements");
    target.appendElements(static_cast<unsigned int>(length));
    encodeRun(target.data(true) + start + ascii, text + ascii, text + count);
}

void cEnDecUTF8::decode(nstd::tConstArrayRef<char> const& source, cString& target) const
{
    auto const length = source.length();
    auto const block = source.proxyPreferredBlockSize();
    unsigned int at = 0;
    while (at < length) {
        auto const count = block == 0 ? length - at : std::min(block, length - at);
        auto const taken = decodePiece(source.proxyProvideData(at, count), count, target);
        at += taken;
        if (taken < count)
            at += decodeNext(source, at, target);
    }
}

void cEnDecUTF8::encodeChar(unsigned int codePoint, nstd::tArray<char>& target)
{
    char bytes[kMaxEncoded];
    target.append(bytes, countOf(bytes, encodeInto(bytes, codePoint)));
}

unsigned int cEnDecUTF8::decodeUTF8(char const* text, unsigned int& index)
{
    try {
        return decodeChar(text, index);
    } catch (nstd::cAbstractException const& cause) {
        cUCSExceptions::throwUCSDecodeError(cause);
    }
}

void cEnDecUTF8::throwUEOD(unsigned int index)
{
    nstd::raiseRuntime(
        nstd::makeMessage("$MTR$UTF8 decode error - unexpected end of data at index %index%!", index));
}

} // namespace nucs
