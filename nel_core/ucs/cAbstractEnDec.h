#pragma once

#include "nel_core/export.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/fwd.h"

namespace nucs {

/// Translates between code points and an encoding of bytes or 16-bit units.
///
/// Every operation appends to its output and never clears it. One that fails keeps what it had written
/// before. A codec overrides what its encoding has; the rest raises nstd::cBugException.
class NEL_EXPORT cAbstractEnDec {
public:
    virtual ~cAbstractEnDec();

    /// The codec's name, as it appears in messages.
    virtual nstd::cAsciiString name() const = 0;
    /// Code points to bytes.
    virtual void encode(cString const& source, nstd::tArray<char>& target) const;
    /// Code points to 16-bit units.
    virtual void encode(cString const& source, nstd::tArray<unsigned short>& target) const;
    /// Code points to code points, for encodings that need such a step; does nothing here.
    virtual void reEncode(cString const& source, cString& target) const;
    /// As encode() to bytes, with four zero bytes behind, enough to end a text of any unit size.
    virtual void encodeCString(cString const& source, nstd::tArray<char>& target) const;
    /// Bytes to code points.
    virtual void decode(nstd::tConstArrayRef<char> const& source, cString& target) const;
    /// 16-bit units to code points.
    virtual void decode(nstd::tConstArrayRef<unsigned short> const& source, cString& target) const;
    /// The way back of reEncode(); does nothing here.
    virtual void reDecode(cString const& source, cString& target) const;
};

} // namespace nucs
