#include "nel_core/nce/cBinarySAExtension.h"

#include "nel_core/io/readFile.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tVector.h"

namespace nce {
namespace {

using tBytes = nsa::cDeserializeBinary::tBytes;
using tDeserializer = nstd::tAutoPtr<nsa::cAbstractDeserializer>;

char const kName[] = "BINARY";

} // namespace

cBinarySAExtension::cBinarySAExtension() : moBuildInfo(npi::cPlatform().buildInfo()) { }

cBinarySAExtension::~cBinarySAExtension() = default;

nstd::cAsciiString cBinarySAExtension::description() const
{
    return "The binary format";
}

nstd::cBuildInfo const& cBinarySAExtension::buildInfo() const
{
    return moBuildInfo;
}

bool cBinarySAExtension::supports(nstd::cAsciiString const& name) const
{
    return name == kName;
}

void cBinarySAExtension::provides(nstd::tVector<nstd::cAsciiString>& names) const
{
    names.append(kName);
}

nstd::tAutoPtr<nsa::cAbstractSerializer> cBinarySAExtension::createSerializer(nstd::cAsciiString const&) const
{
    return nstd::tAutoPtr<nsa::cAbstractSerializer>(new nsa::cSerializeBinary);
}

tDeserializer cBinarySAExtension::createDeserializer(
    nstd::tConstArrayRef<char, nstd::tArrayByteLevelTraits<char>> const& data) const
{
    unsigned int const count = data.length();
    nstd::tAutoPtr<tBytes> bytes(new tBytes(count));
    if (count != 0)
        data.proxyCopyPartTo(bytes->data(), 0, count);
    return tDeserializer(new nsa::cDeserializeBinary(bytes));
}

tDeserializer cBinarySAExtension::createDeserializer(nucs::cString const& fileName) const
{
    nstd::tAutoPtr<tBytes> bytes(new tBytes);
    nio::readWholeFile(fileName, *bytes);
    return tDeserializer(new nsa::cDeserializeBinary(bytes));
}

} // namespace nce
