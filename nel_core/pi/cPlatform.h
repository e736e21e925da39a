#pragma once

#include "nel_core/export.h"
#include "nel_core/io/fwd.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cBuildInfo.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/cString.h"

namespace npi {

/// The services of the operating system, and the factory of the native implementations.
class NEL_EXPORT cPlatform {
public:
    cPlatform();

    /// How this library was built.
    nstd::cBuildInfo const& buildInfo() const { return moBuildInfo; }

    /// The separator of path components.
    static char osSpecificPathDelimiter();
    /// The value of an environment variable, empty when it is not set.
    static nstd::cAsciiString getEnv(nstd::cAsciiString const& name);
    /// The value of an environment variable as the process holds it, null when it is not set. Allocates
    /// nothing; valid until the environment is changed.
    static char const* tryGetEnv(char const* name) noexcept;
    /// The environment variable USER, "unknown" when it is not set.
    static nstd::cAsciiString userName();
    /// The environment variable HOME, decoded with the system's default codec; empty when it is not set.
    /// Raises the codec's error for bytes that it does not accept.
    static nucs::cString homeDirectory();
    /// The root of the file system.
    static nucs::cString osDirectory();
    /// Where applications are installed.
    static nucs::cString applicationsDirectory();
    /// The name of this host, "unknown" when the system does not tell.
    static nstd::cAsciiString hostname();
    /// The id of this process.
    static unsigned int pid();
    /// Gives the processor away for at least a microsecond.
    static void yield();
    /// The system's text for an error number; the number in decimal when it has none. Safe in threads.
    static nstd::cAsciiString osFileIOErrorString(int errnum);
    /// Checks that the library fits the host. There is nothing to check on this platform.
    static void buildChecks();

    /// A thread, not yet started, that calls `function` with `argument`.
    [[nodiscard]] static nstd::tAutoPtr<cAbstractRunnableImpl> createThread(void (*function)(void*),
                                                                            void* argument);
    /// A free recursive mutex.
    [[nodiscard]] static nstd::tAutoPtr<cAbstractMutexImpl> createMutexImpl();
    /// A loader that has loaded the shared object of that file name. Raises ncs::cModuleLoadException.
    [[nodiscard]] static nstd::tAutoPtr<cAbstractClassLoader>
    createClassLoader(nucs::cString const& fileName);
    /// An event processor that waits on descriptors.
    [[nodiscard]] static nstd::tAutoPtr<cAbstractProcessEvents> createProcessEvents();
    /// How this platform names its files.
    [[nodiscard]] static nstd::tAutoPtr<cAbstractPlatformInfo> createPlatformInfo();
    /// The root of a file system, a nio::cProxyFs with the native file system bound into it. `fs` has its
    /// codec already.
    [[nodiscard]] static nstd::tAutoPtr<nio::cAbstractFsImpl> createFsImpl(nio::cFs& fs);

private:
    nstd::cBuildInfo moBuildInfo;
};

} // namespace npi
