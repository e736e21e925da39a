#pragma once

#include <charconv>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

/// Puts lines of text together and hands them on in pieces, so that a value of any length takes no memory
/// here.
class cDumpWriter {
public:
    /// Takes a piece of text; false when it cannot.
    using tSink = std::function<bool(std::string_view)>;

    explicit cDumpWriter(tSink sink);

    /// Starts a line with the offset and the indentation of this depth. Beyond 40 levels the depth is a
    /// number.
    void startLine(unsigned int offset, std::size_t depth);
    /// Adds text as it is.
    void add(std::string_view text);
    template<typename T>
    void addNumber(T number)
    {
        static_assert(std::is_integral_v<T>, "doubles have an operation of their own");
        char digits[24];
        add({digits, std::size_t(std::to_chars(digits, digits + sizeof(digits), number).ptr - digits)});
    }
    /// Adds the shortest text that reads back as the same number; what is not a number with its bits.
    void addDouble(double number);
    /// Adds the bytes in base 16, a space before each.
    void addBytes(char const* bytes, unsigned int count);
    /// Add a text in quotes, with escapes for what does not show.
    void addQuoted(nstd::cAsciiString const& text);
    void addQuoted(nucs::cString const& text);
    /// Adds a text with escapes for what does not show.
    void addText(nucs::cString const& text);
    void endLine() { add("\n"); }

    /// Hands on what is left.
    void flush();
    /// Whether a piece could not be handed on; from then on nothing is.
    bool hasFailed() const { return mbFailed; }

private:
    void addCodePoint(unsigned int codePoint);
    void addBase16(unsigned long long number, unsigned int digits);

    tSink mSink;
    std::string msPending;
    bool mbFailed = false;
};
