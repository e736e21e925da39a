#include "nel_core/ucs/cAbstractEnDec.h"

#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cString.h"

namespace nucs {
namespace {

constexpr char kTerminator[4] = {0, 0, 0, 0};

[[noreturn]] void throwNotImplemented(char const* key, cAbstractEnDec const& enDec)
{
    nstd::raiseBug(nstd::makeMessage(key, enDec.name()));
}

} // namespace

cAbstractEnDec::~cAbstractEnDec() = default;

void cAbstractEnDec::encode(cString const&, nstd::tArray<char>&) const
{
    throwNotImplemented("$MTR$Not implemented: %name%::encode (ucs32 -> ascii)", *this);
}

void cAbstractEnDec::encode(cString const&, nstd::tArray<unsigned short>&) const
{
    throwNotImplemented("$MTR$Not implemented: %name%::encode (ucs32 -> ucs16)", *this);
}

void cAbstractEnDec::reEncode(cString const&, cString&) const { }

void cAbstractEnDec::encodeCString(cString const& source, nstd::tArray<char>& target) const
{
    encode(source, target);
    target.append(kTerminator, sizeof(kTerminator));
}

void cAbstractEnDec::decode(nstd::tConstArrayRef<char> const&, cString&) const
{
    throwNotImplemented("$MTR$Not implemented: %name%::decode (ucs16 -> ascii)", *this);
}

void cAbstractEnDec::decode(nstd::tConstArrayRef<unsigned short> const&, cString&) const
{
    throwNotImplemented("$MTR$Not implemented: %name%::decode (ucs16 -> ucs32)", *this);
}

void cAbstractEnDec::reDecode(cString const&, cString&) const { }

} // namespace nucs
