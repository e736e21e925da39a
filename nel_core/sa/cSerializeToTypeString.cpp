#include "nel_core/sa/cSerializeToTypeString.h"

#include "nel_core/sa/tTypeName.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tArrayRef.h"

namespace nsa {

using tBytes = nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>;

cSerializeToTypeString::cSerializeToTypeString() = default;
cSerializeToTypeString::~cSerializeToTypeString() = default;

void cSerializeToTypeString::storeBlock(char const*, unsigned int)
{
    storeType("char*");
}

void cSerializeToTypeString::store(unsigned char)
{
    storeType(tTypeName<unsigned char>::name());
}

void cSerializeToTypeString::store(signed char)
{
    storeType(tTypeName<signed char>::name());
}

void cSerializeToTypeString::store(unsigned short)
{
    storeType(tTypeName<unsigned short>::name());
}

void cSerializeToTypeString::store(short)
{
    storeType(tTypeName<short>::name());
}

void cSerializeToTypeString::store(unsigned int)
{
    storeType(tTypeName<unsigned int>::name());
}

void cSerializeToTypeString::store(int)
{
    storeType(tTypeName<int>::name());
}

void cSerializeToTypeString::store(unsigned long long)
{
    storeType(tTypeName<unsigned long long>::name());
}

void cSerializeToTypeString::store(long long)
{
    storeType(tTypeName<long long>::name());
}

void cSerializeToTypeString::store(bool)
{
    storeType(tTypeName<bool>::name());
}

void cSerializeToTypeString::store(double)
{
    storeType(tTypeName<double>::name());
}

void cSerializeToTypeString::store(nstd::cAsciiString const&)
{
    storeType(tTypeName<nstd::cAsciiString>::name());
}

void cSerializeToTypeString::store(nucs::cString const&)
{
    storeType(tTypeName<nucs::cString>::name());
}

void cSerializeToTypeString::rewind()
{
    msTypes.clear();
}

void cSerializeToTypeString::clear()
{
    msTypes.clear();
}

cContextRef cSerializeToTypeString::newContext(char const*)
{
    cSTDExceptions::throwUnsupportedOperation("cSerializeToTypeString::newContext(...)");
}

void cSerializeToTypeString::releaseCurrentContext() { }

cAbstractSerializer& cSerializeToTypeString::newLabel(nstd::cAsciiString const&)
{
    return *this;
}

nstd::tArrayRef<char, nstd::tArrayByteLevelTraits<char>> cSerializeToTypeString::data()
{
    cSTDExceptions::throwUnsupportedOperation("cSerializeToTypeString::data()");
}

void cSerializeToTypeString::swapData(tBytes& array)
{
    tBytes types(msTypes.data(true), msTypes.length());
    array.swap(types);
}

void cSerializeToTypeString::storeType(char const* name)
{
    nstd::cAsciiString added(msTypes.empty() ? "" : ", ");
    added += name;
    msTypes += added;
}

} // namespace nsa
