#include "nel_core/pi/cPlatform.h"

#include <cstdlib>
#include <cstring>
#include <unistd.h>

#include "nel_core/io/cProxyFs.h"
#include "nel_core/pi/cPosixProcessEvents.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxClassLoader.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxFsImpl.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxMutexImpl.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxPlatformInfo.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxThreadImpl.h"
#include "nel_core/std/tConstArrayRef.h"

namespace npi {

cPlatform::cPlatform()
    : moBuildInfo(NEL_BUILD_SYSTEM, NEL_BUILD_COMPILER, NEL_BUILD_COMPILER_VERSION, NEL_BUILD_HOST,
                  NEL_BUILD_DATE, NEL_BUILD_COUNT)
{
}

char cPlatform::osSpecificPathDelimiter()
{
    return '/';
}

nstd::cAsciiString cPlatform::getEnv(nstd::cAsciiString const& name)
{
    return nstd::cAsciiString(tryGetEnv(name.c_str()));
}

char const* cPlatform::tryGetEnv(char const* name) noexcept
{
    return std::getenv(name);
}

nstd::cAsciiString cPlatform::userName()
{
    auto const* const name = tryGetEnv("USER");
    return nstd::cAsciiString(name ? name : "unknown");
}

nucs::cString cPlatform::homeDirectory()
{
    nucs::cString directory;
    auto const bytes = getEnv("HOME");
    if (bytes.length() > 0)
        system().defaults.enDec.decode(nstd::tConstArrayRef<char>(bytes), directory);
    return directory;
}

nucs::cString cPlatform::osDirectory()
{
    return nucs::cString("/");
}

nucs::cString cPlatform::applicationsDirectory()
{
    return nucs::cString("/usr/local/");
}

nstd::cAsciiString cPlatform::hostname()
{
    char name[1025] = {};
    return nstd::cAsciiString(::gethostname(name, sizeof(name) - 1) == 0 ? name : "unknown");
}

unsigned int cPlatform::pid()
{
    return static_cast<unsigned int>(::getpid());
}

void cPlatform::yield()
{
    ::usleep(1);
}

nstd::cAsciiString cPlatform::osFileIOErrorString(int errnum)
{
    char buffer[256] = {};
    char const* const text = ::strerror_r(errnum, buffer, sizeof(buffer));
    if (text[0] != 0)
        return nstd::cAsciiString(text);
    nstd::cAsciiString number;
    number.addNum32(errnum, nstd::cNumberConversionFormat(10));
    return number;
}

void cPlatform::buildChecks() { }

nstd::tAutoPtr<cAbstractRunnableImpl> cPlatform::createThread(void (*function)(void*), void* argument)
{
    return nstd::tAutoPtr<cAbstractRunnableImpl>(new cLinuxThreadImpl(function, argument));
}

nstd::tAutoPtr<cAbstractMutexImpl> cPlatform::createMutexImpl()
{
    return nstd::tAutoPtr<cAbstractMutexImpl>(new cLinuxMutexImpl);
}

nstd::tAutoPtr<cAbstractClassLoader> cPlatform::createClassLoader(nucs::cString const& fileName)
{
    return nstd::tAutoPtr<cAbstractClassLoader>(new cLinuxClassLoader(fileName));
}

nstd::tAutoPtr<cAbstractProcessEvents> cPlatform::createProcessEvents()
{
    return nstd::tAutoPtr<cAbstractProcessEvents>(new cPosixProcessEvents);
}

nstd::tAutoPtr<cAbstractPlatformInfo> cPlatform::createPlatformInfo()
{
    return nstd::tAutoPtr<cAbstractPlatformInfo>(new cLinuxPlatformInfo);
}

nstd::tAutoPtr<nio::cAbstractFsImpl> cPlatform::createFsImpl(nio::cFs& fs)
{
    nstd::tAutoPtr<nio::cAbstractFsImpl> root(new nio::cProxyFs(fs));
    root->bind(nstd::tAutoPtr<nio::cAbstractFsImpl>(new cLinuxFsImpl(fs)));
    return root;
}

} // namespace npi
