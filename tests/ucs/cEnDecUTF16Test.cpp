#include "nel_core/ucs/cEnDecUTF16.h"

#include <gtest/gtest.h>
#include <string>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cConstCStringRef.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cString.h"
#include "tests/support/raisedBy.h"

namespace {

using nucs::cEnDecUTF16;
using nucs::cString;
using cBytes = nstd::tArray<char>;
using cUnits = nstd::tArray<unsigned short>;

constexpr unsigned int kLittle = cEnDecUTF16::utf16LittleEndian;
constexpr unsigned int kBig = cEnDecUTF16::utf16BigEndian;
constexpr unsigned int kMark = cEnDecUTF16::utf16ByteOrderMark;

constexpr char kExhausted[] = "Source buffer exhausted!";
constexpr char kCorrupt[] = "Unable to read corrupt utf16 data!";
constexpr char kInvalid[] = "Invalid byte sequence while decoding utf16!";
constexpr char kNoMark[] = "Invalid byte order mark while decoding utf16!";
constexpr char kUnmappable[] = "Unable to convert unmappable character to utf16!";

template<std::size_t N>
std::string raw(char const (&bytes)[N])
{
    return std::string(bytes, N - 1);
}

// The message of what `call` raises, or nothing.
template<typename Call>
std::string failureOf(Call const& call)
{
    try {
        call();
    } catch (nstd::cRuntimeException const& error) {
        EXPECT_EQ(error.history(), nullptr);
        return ntest::messageOf(error);
    }
    return "";
}

struct cEncoded {
    char const* name;
    unsigned int flags;
    cString text;
    std::string bytes;
};

cEncoded const kEncoded[] = {
    {"default order", 0, L"A\u20AC", raw("A\0\xAC\x20")},
    {"little", kLittle, L"\U0001F600", raw("\x3D\xD8\x00\xDE")},
    {"big", kBig, L"\U0001F600", raw("\xD8\x3D\xDE\x00")},
    {"big wins", kBig | kLittle, L"A", raw("\0A")},
    {"last pair", 0, L"\U0010FFFF", raw("\xFF\xDB\xFF\xDF")},
    {"mark", kMark, L"A", raw("\xFF\xFE\x41\0")},
    {"big mark", kMark | kBig, L"A", raw("\xFE\xFF\0A")},
    {"mark alone", kMark, L"", raw("\xFF\xFE")},
    {"behind the surrogates", 0, L"\uD7FF\uE000", raw("\xFF\xD7\x00\xE0")},
};

std::string encodedUnits(cEnDecUTF16 const& enDec, cString const& text)
{
    cUnits units;
    enDec.encode(text, units);
    return std::string(reinterpret_cast<char const*>(units.data(true)), units.length() * 2);
}

TEST(cEnDecUTF16Test, encodesBytesAndUnitsAlike)
{
    for (auto const& row : kEncoded) {
        SCOPED_TRACE(row.name);
        cEnDecUTF16 const enDec(row.flags);
        cBytes bytes;
        enDec.encode(row.text, bytes);
        EXPECT_EQ(std::string(bytes.data(), bytes.length()), row.bytes);
        EXPECT_EQ(encodedUnits(enDec, row.text), row.bytes);
    }
}

TEST(cEnDecUTF16Test, stopsAtACodePointThatHasNoForm)
{
    for (unsigned int codePoint : {0xD800u, 0xDFFFu, 0x110000u, ~0u}) {
        cString text("A");
        text.append(codePoint);
        text.append('B');
        cBytes bytes("<", 1);
        EXPECT_EQ(failureOf([&] { cEnDecUTF16(kMark).encode(text, bytes); }), kUnmappable);
        EXPECT_TRUE(bytes.isEqual("<\xFF\xFE\x41\0", 5));
    }
}

struct cDecoded {
    char const* name;
    unsigned int flags;
    std::string bytes;
    cString text; // also what stays when it fails
    char const* failure;
};

cDecoded const kDecoded[] = {
    {"nothing", 0, "", "", ""},
    {"mark wanted", 0, raw("\xFF\xFE\x41\0"), "A", ""},
    {"big mark", kMark, raw("\xFE\xFF\0A"), "A", ""},
    {"mark wins", kMark | kBig, raw("\xFF\xFE\x41\0"), "A", ""},
    {"no mark", kMark, raw("A\0"), "", kNoMark},
    {"no mark, no order", 0, raw("A\0"), "", kNoMark},
    {"half a mark", kMark, raw("\xFF"), "", kNoMark},
    {"mark only", 0, raw("\xFF\xFE"), "", ""},
    {"fixed order keeps the mark", kLittle, raw("\xFF\xFE"), L"\uFEFF", ""},
    {"big wins", kBig | kLittle, raw("\0A"), "A", ""},
    {"pair", kLittle, raw("\x3D\xD8\x00\xDE"), L"\U0001F600", ""},
    {"big pair", kBig, raw("\xD8\x3D\xDE\x00"), L"\U0001F600", ""},
    {"odd", kLittle, raw("A\0B"), "A", kExhausted},
    {"high alone", kLittle, raw("A\0\x00\xD8"), "A", kCorrupt},
    {"high and a half", kLittle, raw("\x00\xD8\x00"), "", kCorrupt},
    {"low alone", kLittle, raw("\x00\xDC"), "", kCorrupt},
    {"high and zero", kLittle, raw("\x00\xD8\x00\x00"), "", kInvalid},
    {"low first", kLittle, raw("A\0\x00\xDC\x00\xD8"), "A", kInvalid},
    {"zero is a character", kLittle, raw("A\0\0\0B\0"), cString(std::u32string_view(U"A\0B", 3)), ""},
};

TEST(cEnDecUTF16Test, decodesBytes)
{
    for (auto const& row : kDecoded) {
        SCOPED_TRACE(row.name);
        nstd::cConstCStringRef const bytes(row.bytes.data(), static_cast<unsigned int>(row.bytes.size()));
        cString text("<");
        EXPECT_EQ(failureOf([&] { cEnDecUTF16(row.flags).decode(nstd::tConstArrayRef<char>(bytes), text); }),
                  row.failure);
        EXPECT_TRUE(text == cString("<") + row.text);
    }
}

// Pairs at every position towards the border of what is read at a time.
TEST(cEnDecUTF16Test, decodesLongText)
{
    for (unsigned int before = 0; before < 4; ++before) {
        cString text;
        text.appendElements(before, 'x');
        for (unsigned int i = 0; i < 2000; ++i)
            text.append(i % 3 == 0 ? 0x1F600 + i : 0x20AC + i);
        cBytes bytes;
        cEnDecUTF16(kBig).encode(text, bytes);
        cString back;
        cEnDecUTF16(kBig).decode(bytes, back);
        EXPECT_TRUE(back == text);
    }
}

struct cDecodedUnits {
    char const* name;
    unsigned int flags;
    unsigned short units[5];
    cString text;
    char const* failure;
};

cDecodedUnits const kDecodedUnits[] = {
    {"as they are", kLittle, {'A', 0xD83D, 0xDE00}, L"A\U0001F600", ""},
    {"swapped", kBig, {0x4100, 0x3DD8, 0x00DE}, L"A\U0001F600", ""},
    {"mark", kMark | kBig, {0xFEFF, 'A'}, "A", ""},
    {"swapped mark", 0, {0xFFFE, 0x4100}, "A", ""},
    {"no mark", 0, {'A'}, "", kNoMark},
    {"nothing", 0, {}, "", ""},
    {"cut pair", kLittle, {'A', 0xD83D}, "A", kCorrupt},
    {"wrong pair", kLittle, {0xD83D, 'A'}, "", kInvalid},
};

TEST(cEnDecUTF16Test, decodesUnitsUpToAZeroUnit)
{
    for (auto const& row : kDecodedUnits) {
        SCOPED_TRACE(row.name);
        cString text("<");
        EXPECT_EQ(failureOf([&] { cEnDecUTF16(row.flags).decodeCString(row.units, text); }), row.failure);
        EXPECT_TRUE(text == cString("<") + row.text);
    }
}

TEST(cEnDecUTF16Test, endsTextWithZeros)
{
    cEnDecUTF16 const enDec(kBig);
    cUnits units;
    enDec.encodeCString("A", units);
    EXPECT_EQ(units.length(), 2u);
    EXPECT_TRUE(units[0] == 0x4100 && units[1] == 0);
    cBytes bytes;
    enDec.encodeCString("A", bytes);
    EXPECT_TRUE(bytes.isEqual("\0A\0\0\0\0", 6) && bytes.length() == 6);

    cString text;
    auto const error = ntest::raisedBy<nstd::cBugException>([&] { enDec.decode(units, text); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(ntest::messageOf(*error), "Not implemented: Endec-UTF16::decode (ucs16 -> ucs32)");
}

} // namespace
