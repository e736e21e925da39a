#include "nel_core/pi/platform/dependend/native_linux/cLinuxClassLoader.h"

#include <cstring>
#include <dlfcn.h>
#include <link.h>
#include <utility>

#include "nel_core/io/cFs.h"
#include "nel_core/io/fileName.h"
#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/cModuleLoadException.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/platform/dependend/native_linux/moduleFile.h"
#include "nel_core/pi/platform/dependend/native_linux/osError.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cAbstractEnDec.h"

namespace npi {
namespace {

using ncs::cModuleLoadException;

// The same as dlopen(), whose own declaration says that it does not raise: static constructors may.
extern "C" void* openRaising(char const* name, int mode) __asm__("dlopen");

[[noreturn]] void throwProblem(cModuleLoadException::KindOfProblem kind, nucs::cString const& fileName,
                               nucs::cLIMessage message)
{
    throw cModuleLoadException(kind, fileName, std::move(message));
}

[[noreturn]] void throwNotLoaded(nucs::cString const& fileName, nucs::cString const& osError)
{
    throwProblem(cModuleLoadException::kpNotLoaded, fileName,
                 nstd::makeMessage("$MTR$Unable to load plugin. OS returned %oserror%!", osError));
}

[[noreturn]] void throwNoInstance(nucs::cString const& fileName, nucs::cLIMessage message)
{
    throwProblem(cModuleLoadException::kpNoInstance, fileName, std::move(message));
}

[[noreturn]] void throwInvalid(nucs::cString const& fileName, char const* key)
{
    throwProblem(cModuleLoadException::kpInvalidModule, fileName, nstd::makeMessage(key));
}

// The dynamic linker's words, which may quote file names.
nucs::cString linkerError()
{
    auto const* const bytes = ::dlerror();
    nstd::cAsciiString const text(bytes ? bytes : "unknown error");
    try {
        return nio::decodedPath(text, system().fs.endec());
    } catch (nstd::cAbstractException const&) {
        return nucs::cString(text, '?');
    }
}

// A static constructor that raises leaves dlopen() in the middle, with a reference that nobody has. The
// linker's name for the object finds it again, and the second dlclose() takes back that reference.
void closeAbandoned(char const* name) noexcept
{
    if (auto* const handle = ::dlopen(name, RTLD_NOW | RTLD_NOLOAD)) {
        ::dlclose(handle);
        ::dlclose(handle);
    }
}

// From now on no dlclose() unmaps the object.
void keepLoaded(void* handle) noexcept
{
    link_map* object = nullptr;
    if (::dlinfo(handle, RTLD_DI_LINKMAP, &object) == 0)
        ::dlopen(object->l_name, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
}

void* openObject(nucs::cString const& fileName, char const* name)
{
    // The exception's class may be in the object: the handler is left before the object goes.
    bool hasRaised = false;
    void* handle = nullptr;
    try {
        handle = openRaising(name, RTLD_NOW);
    } catch (...) {
        hasRaised = true;
    }
    if (hasRaised) {
        closeAbandoned(name);
        throwNotLoaded(fileName, "a static constructor has raised an exception");
    }
    if (!handle)
        throwNotLoaded(fileName, linkerError());
    return handle;
}

// The linker would take an empty name for the program itself.
void requireLoadable(nucs::cString const& fileName, tEncodedName const& name)
{
    if (!isWholeName(name))
        throwNotLoaded(fileName, "the file name holds a zero");
    if (name.length() == 1)
        throwNotLoaded(fileName, "empty file name");
    if (std::strchr(name.data(), '/') == nullptr)
        return; // the linker searches for it
    auto const problem = moduleFileProblem(name.data());
    if (problem.length() > 0)
        throwNotLoaded(fileName, nucs::cString(problem, '?'));
}

template<typename Function>
Function findEntry(void* handle, char const* symbol) noexcept
{
    return reinterpret_cast<Function>(::dlsym(handle, symbol));
}

// The class of an exception that leaves an entry may be in the object, so that the object then stays.
template<typename Entry, typename... Arguments>
void callEntry(void* handle, Entry entry, Arguments&... arguments)
{
    try {
        entry(arguments...);
    } catch (...) {
        keepLoaded(handle);
        throw;
    }
}

} // namespace

cLinuxClassLoader::cLinuxClassLoader(nucs::cString const& fileName) : cAbstractClassLoader(fileName)
{
    try {
        loadLibrary(fileName);
    } catch (...) {
        unloadLibrary();
        throw;
    }
}

cLinuxClassLoader::~cLinuxClassLoader()
{
    unloadLibrary();
}

void cLinuxClassLoader::loadLibrary(nucs::cString const& fileName)
{
    unloadLibrary();
    auto const name = encodedUnchecked(fileName, system().fs.endec());
    requireLoadable(fileName, name);
    mpHandle = openObject(fileName, name.data());

    mpInitPlugIn = findEntry<tModuleInitPlugIn>(mpHandle, "moduleInitPlugIn");
    mpInitComponent = findEntry<tModuleInitComponent>(mpHandle, "moduleInitComponent");
    mpModuleVersion = findEntry<tModuleVersion>(mpHandle, "moduleVersion");
    mpNelVersion = findEntry<tModuleVersion>(mpHandle, "nelVersion");
    if (!mpInitPlugIn && !mpInitComponent)
        throwInvalid(fileName, "$MTR$Invalid module. Missing moduleInit section!");
    if (!mpModuleVersion)
        throwInvalid(fileName, "$MTR$Invalid module. Missing moduleVersion section!");
    if (!mpNelVersion)
        throwInvalid(fileName, "$MTR$Invalid module. Missing nelVersion section!");
}

void cLinuxClassLoader::unloadLibrary() noexcept
{
    mpInitPlugIn = nullptr;
    mpInitComponent = nullptr;
    mpModuleVersion = nullptr;
    mpNelVersion = nullptr;
    if (auto* const handle = std::exchange(mpHandle, nullptr))
        ::dlclose(handle);
}

nstd::tAutoPtr<ncs::cAbstractPlugIn> cLinuxClassLoader::instance(nsa::cReferenceFrame& frame)
{
    if (!mpInitPlugIn)
        throwNoInstance(libFileName(), nstd::makeMessage("$MTR$File %file% is not a plugin!", libFileName()));
    ncs::cAbstractPlugIn* plugIn = nullptr;
    callEntry(mpHandle, mpInitPlugIn, plugIn, frame);
    if (!plugIn)
        throwNoInstance(
            libFileName(),
            nstd::makeMessage("$MTR$Plugin (%file%) does not provide functionality!", libFileName()));
    incRef();
    return nstd::tAutoPtr<ncs::cAbstractPlugIn>(plugIn);
}

nstd::tAutoPtr<ncs::cAbstractComponent> cLinuxClassLoader::instance(nsa::cReferenceFrame& frame,
                                                                    ncs::cModuleMgr& manager)
{
    if (!mpInitComponent)
        throwNoInstance(libFileName(), nstd::makeMessage("$MTR$cClassLoader: No component!"));
    ncs::cAbstractComponent* component = nullptr;
    callEntry(mpHandle, mpInitComponent, component, manager, frame);
    if (!component)
        throwNoInstance(libFileName(), nstd::makeMessage("$MTR$cClassLoader: No instance!"));
    incRef();
    return nstd::tAutoPtr<ncs::cAbstractComponent>(component);
}

void cLinuxClassLoader::getModuleVersion(unsigned int& major, unsigned int& minor) const
{
    if (mpModuleVersion)
        callEntry(mpHandle, mpModuleVersion, major, minor);
}

void cLinuxClassLoader::getModuleNELVersion(unsigned int& major, unsigned int& minor) const
{
    if (mpNelVersion)
        callEntry(mpHandle, mpNelVersion, major, minor);
}

} // namespace npi
