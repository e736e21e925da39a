#pragma once

#include "nel_core/ucs/cAbstractEnDec.h"

namespace nucs {

/// UTF-16 as bytes or as 16-bit units, strict: lone surrogates and code points above 0x10FFFF raise
/// nstd::cRuntimeException.
///
/// The flags settle the byte order. Encoding is little-endian unless told otherwise; decoding without a
/// settled order asks for a byte order mark and consumes it. With a settled order a mark is the character
/// U+FEFF.
class NEL_EXPORT cEnDecUTF16 : public cAbstractEnDec {
public:
    enum Flag : unsigned int {
        utf16LittleEndian = 1, ///< decoding: the order is little-endian
        utf16BigEndian = 2,    ///< the order is big-endian, wins over utf16LittleEndian; units are swapped
        utf16ByteOrderMark = 4 ///< encoding writes a mark first; decoding goes by the mark alone
    };

    /// `flags` is a sum of Flag values.
    explicit cEnDecUTF16(unsigned int flags);

    using cAbstractEnDec::decode;
    using cAbstractEnDec::encodeCString;

    /// "Endec-UTF16".
    nstd::cAsciiString name() const override;
    void encode(cString const& source, nstd::tArray<char>& target) const override;
    /// Appends units in the order of the host, swapped with utf16BigEndian.
    void encode(cString const& source, nstd::tArray<unsigned short>& target) const override;
    void decode(nstd::tConstArrayRef<char> const& source, cString& target) const override;
    /// As encode() to units, with a zero unit behind.
    virtual void encodeCString(cString const& source, nstd::tArray<unsigned short>& target) const;
    /// Appends the code points of the units up to a zero unit, swapped with utf16BigEndian or after a swapped
    /// mark.
    virtual void decodeCString(unsigned short const* source, cString& target) const;

private:
    unsigned int miFlags;
};

} // namespace nucs
