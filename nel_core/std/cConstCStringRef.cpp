#include "nel_core/std/cConstCStringRef.h"

#include <cstring>

#include "nel_core/std/tBounds.h"

namespace nstd {

cConstCStringRef::cConstCStringRef(char const* text) : mpCStyleStringRef(text), miLength(0)
{
    NEL_ASSERT(mpCStyleStringRef != 0);
    miLength = tBounds::narrow(std::strlen(text), "cConstCStringRef", "length");
}

cConstCStringRef::cConstCStringRef(char const* text, unsigned int length)
    : mpCStyleStringRef(text),
      miLength(length)
{
    if (length != 0)
        NEL_ASSERT(mpCStyleStringRef != 0);
}

cConstCStringRef::cConstCStringRef(std::string_view text)
    : mpCStyleStringRef(text.data()),
      miLength(tBounds::narrow(text.size(), "cConstCStringRef", "length"))
{
}

cConstCStringRef::~cConstCStringRef() = default;

char const& cConstCStringRef::proxyAt(unsigned int i) const
{
    return (*this)[i];
}

unsigned int cConstCStringRef::proxyLength() const
{
    return miLength;
}

void cConstCStringRef::proxyCopyPartTo(char* target, unsigned int start, unsigned int count) const
{
    tBounds::startSize2End(miLength, start, count, "cConstCStringRef", "copyPartTo");
    if (count != 0)
        std::memcpy(target, mpCStyleStringRef + start, count);
}

char const* cConstCStringRef::proxyProvideData(unsigned int start, unsigned int count) const
{
    tBounds::startSize2End(miLength, start, count, "cConstCStringRef", "provideData");
    return mpCStyleStringRef + start;
}

unsigned int cConstCStringRef::proxyPreferredBlockSize() const
{
    return 0;
}

tAbstractConstArrayProxy<char> const& cConstCStringRef::constProxyPhysical(unsigned int& offset) const
{
    offset = 0;
    return *this;
}

} // namespace nstd
