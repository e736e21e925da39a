#pragma once

#include "nel_core/ucs/cAbstractEnDec.h"

/// ISO-8859-1: one byte for each of the code points 0 to 255.
class cEnDecLatin1 : public nucs::cAbstractEnDec {
public:
    using cAbstractEnDec::decode;
    using cAbstractEnDec::encode;

    ~cEnDecLatin1() override;
    /// "Endec-ISO-8859-1".
    nstd::cAsciiString name() const override;
    /// Raises the runtime exception of an encoding error, with its cause linked, and appends nothing when a
    /// code point is above 255.
    void encode(nucs::cString const& source, nstd::tArray<char>& target) const override;
    void decode(nstd::tConstArrayRef<char> const& source, nucs::cString& target) const override;
};
