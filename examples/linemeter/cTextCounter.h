#pragma once

#include "nel_core/std/tArray.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cEnDecUTF8.h"
#include "nel_core/ucs/cString.h"

/// Counts what is in a text that comes in pieces of any size.
class cTextCounter {
public:
    /// Counts the next piece of the text.
    void add(char const* data, unsigned int size);
    /// The text is complete: counts a last line without line feed and a last character that was cut off.
    void finish();

    /// Lines, the last one with or without a line feed.
    unsigned long long lines() const { return miLines; }
    unsigned long long bytes() const { return miBytes; }
    /// Characters of well-formed UTF-8.
    unsigned long long codePoints() const { return miCodePoints; }
    /// Bytes that belong to no well-formed character.
    unsigned long long badBytes() const { return miBadBytes; }

private:
    unsigned int decode(char const* data, unsigned int size);
    void decodeRun(char const* data, unsigned int start, unsigned int end);

    unsigned long long miLines = 0;
    unsigned long long miBytes = 0;
    unsigned long long miCodePoints = 0;
    unsigned long long miBadBytes = 0;
    bool mbInLine = false;
    nstd::tArray<char> maRest; ///< the beginning of a character that the next piece completes
    nucs::cEnDecUTF8 mCodec;
    nucs::cString msDecoded;
};
