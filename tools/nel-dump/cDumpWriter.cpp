#include "cDumpWriter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tArray.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cString.h"

namespace {

constexpr std::size_t kPieceSize = 64 * 1024;
constexpr std::size_t kOffsetWidth = 8;
constexpr std::size_t kIndentMax = 40; // levels of two spaces
constexpr unsigned long long kPlainNan = 0x7FF8000000000000;

constexpr bool isBetween(unsigned int value, unsigned int first, unsigned int last)
{
    return value >= first && value <= last;
}

constexpr bool isPrintable(unsigned int character)
{
    return isBetween(character, 0x20, 0x7E);
}

// Not control characters, line separators and marks that change the direction of a line, nor what is no
// character at all.
constexpr bool isShown(unsigned int codePoint)
{
    return isPrintable(codePoint)
           || (isBetween(codePoint, 0xA0, 0x10FFFF) && !isBetween(codePoint, 0xD800, 0xDFFF)
               && !isBetween(codePoint, 0x200E, 0x200F) && !isBetween(codePoint, 0x2028, 0x202E)
               && !isBetween(codePoint, 0x2066, 0x2069) && codePoint != 0xFEFF);
}

constexpr bool isEscaped(unsigned int character)
{
    return character == '"' || character == '\\';
}

unsigned int digitCount(unsigned int number)
{
    unsigned int count = 1;
    while (number >>= 4)
        ++count;
    return count;
}

} // namespace

cDumpWriter::cDumpWriter(tSink sink) : mSink(std::move(sink)) { }

void cDumpWriter::startLine(unsigned int offset, std::size_t depth)
{
    std::string const digits = std::to_string(offset);
    msPending.append(kOffsetWidth - std::min(kOffsetWidth, digits.size()), ' ');
    add(digits);
    msPending.append(1 + 2 * std::min(depth, kIndentMax), ' ');
    if (depth > kIndentMax)
        add("[" + std::to_string(depth) + "] ");
}

void cDumpWriter::add(std::string_view text)
{
    msPending += text;
    if (msPending.size() >= kPieceSize)
        flush();
}

void cDumpWriter::addDouble(double number)
{
    if (std::isnan(number)) {
        unsigned long long bits = 0;
        std::memcpy(&bits, &number, sizeof(bits));
        add("nan");
        if (bits == kPlainNan)
            return;
        add(" 0x");
        addBase16(bits, 16);
        return;
    }
    char digits[32];
    add({digits, std::size_t(std::to_chars(digits, digits + sizeof(digits), number).ptr - digits)});
}

void cDumpWriter::addBytes(char const* bytes, unsigned int count)
{
    for (unsigned int i = 0; i < count; ++i) {
        add(" ");
        addBase16(static_cast<unsigned char>(bytes[i]), 2);
    }
}

void cDumpWriter::addQuoted(nstd::cAsciiString const& text)
{
    add("\"");
    for (char const c : text) {
        auto const byte = static_cast<unsigned char>(c);
        if (isPrintable(byte)) {
            addCodePoint(byte);
        } else {
            add("\\x");
            addBase16(byte, 2);
        }
    }
    add("\"");
}

void cDumpWriter::addQuoted(nucs::cString const& text)
{
    add("\"");
    for (unsigned int const codePoint : text)
        addCodePoint(codePoint);
    add("\"");
}

void cDumpWriter::addText(nucs::cString const& text)
{
    for (unsigned int const codePoint : text) {
        if (isEscaped(codePoint))
            add({codePoint == '"' ? "\"" : "\\", 1});
        else
            addCodePoint(codePoint);
    }
}

void cDumpWriter::addCodePoint(unsigned int codePoint)
{
    if (!isShown(codePoint)) {
        add("\\u{");
        addBase16(codePoint, digitCount(codePoint));
        add("}");
        return;
    }
    if (isEscaped(codePoint))
        add("\\");
    if (isPrintable(codePoint)) {
        char const character = static_cast<char>(codePoint);
        add({&character, 1});
        return;
    }
    nstd::tArray<char> bytes;
    nucs::cEnDecUTF8::encodeChar(codePoint, bytes);
    add({bytes.data(), bytes.length()});
}

void cDumpWriter::addBase16(unsigned long long number, unsigned int digits)
{
    for (unsigned int shift = 4 * digits; shift != 0; shift -= 4)
        add({&"0123456789abcdef"[number >> (shift - 4) & 15], 1});
}

void cDumpWriter::flush()
{
    if (!mbFailed && !msPending.empty())
        mbFailed = !mSink(msPending);
    msPending.clear();
}
