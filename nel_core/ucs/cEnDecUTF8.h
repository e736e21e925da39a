#pragma once

#include "nel_core/ucs/cAbstractEnDec.h"

namespace nucs {

/// UTF-8, lenient on purpose: surrogates, overlong forms and stray continuation bytes (which stand for
/// themselves) are accepted, continuation bytes are not checked, code points above 0x10FFFF are encoded. What
/// is refused is a zero byte, a sequence cut off by the end or a zero byte, and lead bytes from 0xF8 on. A
/// U+0000 therefore encodes to a byte that does not decode. Code points must lie below 0x4000000: five bytes
/// hold no more.
class NEL_EXPORT cEnDecUTF8 : public cAbstractEnDec {
public:
    using cAbstractEnDec::decode;
    using cAbstractEnDec::encode;

    /// "Endec-UTF8".
    nstd::cAsciiString name() const override;
    /// Appends the bytes of every code point. Raises out-of-bounds when the target would pass 2^32 - 1 bytes.
    void encode(cString const& source, nstd::tArray<char>& target) const override;
    /// Appends the code points of all bytes; raises "Unicode decode error!" as decodeUTF8(), with indices
    /// counted from the first byte of the character that failed. Needs room for as many code points as there
    /// are bytes while it works, and gives back what it did not need.
    void decode(nstd::tConstArrayRef<char> const& source, cString& target) const override;

    /// Appends the one to five bytes of a code point.
    static void encodeChar(unsigned int codePoint, nstd::tArray<char>& target);
    /// The code point at `index` of a zero-terminated text; moves the index behind it. Raises the runtime
    /// exception "Unicode decode error!" with its cause linked, and leaves the index then.
    static unsigned int decodeUTF8(char const* text, unsigned int& index);
    /// Raises the runtime exception of a text that ends at `index`, inside a character or before it.
    [[noreturn]] static void throwUEOD(unsigned int index);
};

} // namespace nucs
