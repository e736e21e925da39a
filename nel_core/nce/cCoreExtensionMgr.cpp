#include "nel_core/nce/cCoreExtensionMgr.h"

#include "nel_core/io/cFs.h"
#include "nel_core/nce/cAbstractEnDecExtension.h"
#include "nel_core/nce/cAbstractSAExtension.h"
#include "nel_core/nce/cNetAbstractAddressExtension.h"
#include "nel_core/nce/cUnsupportedExtensionException.h"
#include "nel_core/nce/net++/cNetAbstractAddress.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cNCSExceptions.h"
#include "nel_core/ncs/cPlugInGuard.h"
#include "nel_core/pi/cAbstractClassLoader.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/moduleLoader.h"
#include "nel_core/sa/cAbstractDeserializer.h"
#include "nel_core/sa/cAbstractSerializer.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/std/tVector.h"
#include "nel_core/ucs/cAbstractEnDec.h"
#include "nel_core/ucs/cString.h"

namespace nce {
namespace {

char const kEnDec[] = "Encoder / Decoder";
char const kSerializer[] = "serializer";
char const kNetAddress[] = "netwok address";

struct cBusyScope {
    explicit cBusyScope(unsigned int& calls) : miCalls(calls) { ++miCalls; }
    ~cBusyScope() { --miCalls; }
    cBusyScope(cBusyScope const&) = delete;
    cBusyScope& operator=(cBusyScope const&) = delete;

    unsigned int& miCalls;
};

} // namespace

cCoreExtensionMgr::cCoreExtensionMgr()
{
    mExtensions.setGuardMode(nstd::tPtrList<cExtensionPair>::gmOwn);
}

cCoreExtensionMgr::~cCoreExtensionMgr()
{
    close();
}

void cCoreExtensionMgr::add(nstd::tAutoPtr<cAbstractCoreExtension> extension)
{
    requireOpen("cCoreExtensionMgr::add()");
    append(nstd::tAutoPtr<cExtensionPair>(new cExtensionPair(extension)));
}

ncs::cAbstractPlugIn& cCoreExtensionMgr::load(nucs::cString const& name, nsa::cReferenceFrame& frame)
{
    requireOpen("cCoreExtensionMgr::load()");
    cBusyScope const busy(miBusy);
    nstd::cAsciiString const noContext;
    auto loader = npi::loadModule(name);
    ncs::cPlugInGuard guard(loader->instance(frame));
    auto& plugIn = *guard.plugIn();
    plugIn.setClassLoader(loader.get(), noContext);
    static_cast<void>(loader.release()); // the guard's from now on
    if (!plugIn.isCoreExtension())
        cNCSExceptions::throwNoCoreExtension(name);

    append(nstd::tAutoPtr<cExtensionPair>(new cExtensionPair(guard.release())));
    return plugIn;
}

ncs::cAbstractPlugIn& cCoreExtensionMgr::load(nucs::cString const& name)
{
    nsa::cReferenceFrame frame;
    return load(name, frame);
}

ncs::cAbstractPlugIn& cCoreExtensionMgr::load(nstd::cAsciiString const& name, nsa::cReferenceFrame& frame)
{
    nucs::cString decoded;
    npi::system().fs.endec().decode(nstd::tConstArrayRef<char>(name), decoded);
    return load(decoded, frame);
}

bool cCoreExtensionMgr::has(nucs::cString const& name) const
{
    return npi::system().fs.exists(npi::moduleFileName(name), true, nullptr,
                                   nio::cFileInfoFlags::tsLastModification);
}

// The list takes all records out before the first one goes: what extensions do meanwhile finds none of them.
void cCoreExtensionMgr::clear()
{
    cBusyScope const busy(miBusy);
    mExtensions.clear();
}

void cCoreExtensionMgr::close()
{
    mbClosed = true;
    clear();
}

void cCoreExtensionMgr::requireOpen(char const* operation) const
{
    if (mbClosed)
        cSTDExceptions::throwUnsupportedOperation(operation);
}

void cCoreExtensionMgr::append(nstd::tAutoPtr<cExtensionPair> record)
{
    mExtensions.guardedInsert(mExtensions.end(), record);
}

cAbstractCoreExtension const* cCoreExtensionMgr::hasExtension(nstd::cAsciiString const& name) const
{
    auto const upper = name.upperCase();
    for (cExtensionPair const* const record : mExtensions) {
        if (record->extension().supports(upper))
            return &record->extension();
    }
    return nullptr;
}

void cCoreExtensionMgr::provides(cAbstractCoreExtension::ExtensionType type,
                                 nstd::tVector<nstd::cAsciiString>& names) const
{
    for (cExtensionPair const* const record : mExtensions) {
        if (record->extension().extensionType() == type)
            record->extension().provides(names);
    }
}

nstd::tAutoPtr<nucs::cAbstractEnDec> cCoreExtensionMgr::createEnDec(nstd::cAsciiString const& name) const
{
    auto const upper = name.upperCase();
    return findExtension<cAbstractEnDecExtension>(mExtensions, cAbstractCoreExtension::etEnDec, kEnDec, upper)
        .createEnDec(upper);
}

nstd::tAutoPtr<nsa::cAbstractSerializer>
cCoreExtensionMgr::createSerializer(nstd::cAsciiString const& name, nstd::cAsciiString const& argument) const
{
    return findSerializer(name).createSerializer(argument);
}

nstd::tAutoPtr<nsa::cAbstractDeserializer>
cCoreExtensionMgr::createDeserializer(nstd::cAsciiString const& name, nucs::cString const& fileName) const
{
    return findSerializer(name).createDeserializer(fileName);
}

nstd::tAutoPtr<nsa::cAbstractDeserializer> cCoreExtensionMgr::createDeserializer(
    nstd::cAsciiString const& name,
    nstd::tConstArrayRef<char, nstd::tArrayByteLevelTraits<char>> const& data) const
{
    return findSerializer(name).createDeserializer(data);
}

cAbstractSAExtension const& cCoreExtensionMgr::findSerializer(nstd::cAsciiString const& name) const
{
    return findExtension<cAbstractSAExtension>(mExtensions, cAbstractCoreExtension::etSerialization,
                                               kSerializer, name);
}

nstd::tAutoPtr<cNetAbstractAddress> cCoreExtensionMgr::createNetAddress(nstd::cAsciiString const& name) const
{
    return findExtension<cNetAbstractAddressExtension>(mExtensions, cAbstractCoreExtension::etNetAddress,
                                                       kNetAddress, name)
        .createNetAddress(name);
}

template<typename T>
T const* hasExtension(nstd::tPtrList<cExtensionPair> const& records, bool& typeFound,
                      cAbstractCoreExtension::ExtensionType type, nstd::cAsciiString const&,
                      nstd::cAsciiString const& name)
{
    auto const upper = name.upperCase();
    for (cExtensionPair const* const record : records) {
        auto const& extension = record->extension();
        if (extension.extensionType() != type)
            continue;
        typeFound = true;
        if (extension.supports(upper)) {
            auto const* const p = dynamic_cast<T const*>(&extension);
            NEL_ASSERT_AT(p != 0, "nel_core/nce/cCoreExtensionMgr", 153);
            return p;
        }
    }
    return nullptr;
}

template<typename T>
T const& findExtension(nstd::tPtrList<cExtensionPair> const& records,
                       cAbstractCoreExtension::ExtensionType type, nstd::cAsciiString const& kind,
                       nstd::cAsciiString const& name)
{
    bool typeFound = false;
    if (T const* const found = hasExtension<T>(records, typeFound, type, kind, name))
        return *found;
    throw cUnsupportedExtensionException(kind, name, typeFound);
}

template cNetAbstractAddressExtension const*
hasExtension<cNetAbstractAddressExtension>(nstd::tPtrList<cExtensionPair> const&, bool&,
                                           cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                           nstd::cAsciiString const&);
template cAbstractSAExtension const* hasExtension<cAbstractSAExtension>(nstd::tPtrList<cExtensionPair> const&,
                                                                        bool&,
                                                                        cAbstractCoreExtension::ExtensionType,
                                                                        nstd::cAsciiString const&,
                                                                        nstd::cAsciiString const&);
template cAbstractEnDecExtension const*
hasExtension<cAbstractEnDecExtension>(nstd::tPtrList<cExtensionPair> const&, bool&,
                                      cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                      nstd::cAsciiString const&);
template cNetAbstractAddressExtension const&
findExtension<cNetAbstractAddressExtension>(nstd::tPtrList<cExtensionPair> const&,
                                            cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                            nstd::cAsciiString const&);
template cAbstractSAExtension const&
findExtension<cAbstractSAExtension>(nstd::tPtrList<cExtensionPair> const&,
                                    cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                    nstd::cAsciiString const&);
template cAbstractEnDecExtension const&
findExtension<cAbstractEnDecExtension>(nstd::tPtrList<cExtensionPair> const&,
                                       cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                       nstd::cAsciiString const&);

} // namespace nce
