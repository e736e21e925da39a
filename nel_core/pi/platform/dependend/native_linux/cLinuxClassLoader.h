#pragma once

#include "nel_core/pi/cAbstractClassLoader.h"

namespace npi {

extern "C" {
typedef void (*tModuleInitPlugIn)(ncs::cAbstractPlugIn*& result, nsa::cReferenceFrame& frame);
typedef void (*tModuleInitComponent)(ncs::cAbstractComponent*& result, ncs::cModuleMgr& manager,
                                     nsa::cReferenceFrame& frame);
typedef void (*tModuleVersion)(unsigned int& major, unsigned int& minor);
}

/// The class loader over the dynamic linker.
///
/// A shared object is a module when it exports "moduleInitPlugIn" or "moduleInitComponent", "moduleVersion"
/// and "nelVersion". A file that is named with a directory is checked before it is loaded: the dynamic linker
/// does not survive every damaged file. Such a name is a plain path ("$ORIGIN" means nothing in it). Files
/// that the linker searches for itself, and one that changes in between, go unchecked.
///
/// When an entry of the module raises, the shared object stays loaded for good, because the exception's code
/// may be in it.
///
/// Static constructors of a module must not raise. One that does makes the loading fail like any other
/// failure, and the object is unloaded. But the dynamic linker, which no exception should cross, keeps its
/// lock for the thread that has loaded: from then on every other thread waits forever as soon as it loads,
/// unloads or starts to use a thread_local object that has a destructor. A program without other threads
/// goes on as ever.
class NEL_EXPORT cLinuxClassLoader : public cAbstractClassLoader {
public:
    /// Loads the file; raises as loadLibrary() does.
    explicit cLinuxClassLoader(nucs::cString const& fileName);
    ~cLinuxClassLoader() override;

    [[nodiscard]] nstd::tAutoPtr<ncs::cAbstractPlugIn> instance(nsa::cReferenceFrame& frame) override;
    [[nodiscard]] nstd::tAutoPtr<ncs::cAbstractComponent> instance(nsa::cReferenceFrame& frame,
                                                                   ncs::cModuleMgr& manager) override;
    void getModuleVersion(unsigned int& major, unsigned int& minor) const override;
    void getModuleNELVersion(unsigned int& major, unsigned int& minor) const override;

    /// Unloads what is loaded, and loads the file and looks up its entries. Raises
    /// ncs::cModuleLoadException; a file that is no module stays loaded then. Raises what the codec of the
    /// system's file system raises for a name that cannot be encoded.
    void loadLibrary(nucs::cString const& fileName);
    /// Unloads the shared object; there must be no module of it.
    void unloadLibrary() noexcept;

private:
    tModuleInitPlugIn mpInitPlugIn = nullptr;
    tModuleInitComponent mpInitComponent = nullptr;
    tModuleVersion mpModuleVersion = nullptr;
    tModuleVersion mpNelVersion = nullptr;
    void* mpHandle = nullptr; ///< null when nothing is loaded
};

} // namespace npi
