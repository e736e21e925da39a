#include "nel_core/nce/cStandardEnDecExtension.h"

#include "nel_core/nce/cUnsupportedExtensionException.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tVector.h"
#include "nel_core/ucs/cEnDecUTF16.h"
#include "nel_core/ucs/cEnDecUTF8.h"

namespace nce {
namespace {

using tCodec = nstd::tAutoPtr<nucs::cAbstractEnDec>;

tCodec createUTF8()
{
    return tCodec(new nucs::cEnDecUTF8);
}

tCodec createUTF16()
{
    return tCodec(new nucs::cEnDecUTF16(nucs::cEnDecUTF16::utf16ByteOrderMark));
}

struct cCodec {
    char const* name;
    tCodec (*create)();
};

constexpr cCodec kCodecs[] = {
    {"UTF-8", &createUTF8},
    {"UTF8", &createUTF8},
    {"UTF-16", &createUTF16},
    {"UTF16", &createUTF16},
};

cCodec const* tryFindCodec(nstd::cAsciiString const& name)
{
    for (cCodec const& codec : kCodecs) {
        if (name == codec.name)
            return &codec;
    }
    return nullptr;
}

} // namespace

cStandardEnDecExtension::cStandardEnDecExtension() : moBuildInfo(npi::cPlatform().buildInfo()) { }

cStandardEnDecExtension::~cStandardEnDecExtension() = default;

nstd::cAsciiString cStandardEnDecExtension::description() const
{
    return "UTF-8 and UTF-16";
}

nstd::cBuildInfo const& cStandardEnDecExtension::buildInfo() const
{
    return moBuildInfo;
}

bool cStandardEnDecExtension::supports(nstd::cAsciiString const& name) const
{
    return tryFindCodec(name) != nullptr;
}

void cStandardEnDecExtension::provides(nstd::tVector<nstd::cAsciiString>& names) const
{
    for (cCodec const& codec : kCodecs)
        names.append(codec.name);
}

tCodec cStandardEnDecExtension::createEnDec(nstd::cAsciiString const& name) const
{
    if (cCodec const* const codec = tryFindCodec(name))
        return codec->create();
    throw cUnsupportedExtensionException("Encoder / Decoder", name, true);
}

} // namespace nce
