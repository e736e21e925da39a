#pragma once

#include "nel_core/export.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/cString.h"

namespace npi {

/// Holds a loaded shared object and creates the modules that it contains.
///
/// Counts the modules that it has made and that live; it must outlive them, because their code lives in the
/// shared object. Deleting the loader unloads the object. Used by the main thread.
class NEL_EXPORT cAbstractClassLoader {
public:
    explicit cAbstractClassLoader(nucs::cString const& fileName);
    cAbstractClassLoader(cAbstractClassLoader const&) = delete;
    cAbstractClassLoader& operator=(cAbstractClassLoader const&) = delete;
    virtual ~cAbstractClassLoader();

    /// The module as a plug-in, or as a component of the manager; it holds one reference. The frame is what
    /// the module is created with. Raise ncs::cModuleLoadException when the module is nothing of the kind or
    /// gives nothing, and whatever the module raises.
    [[nodiscard]] virtual nstd::tAutoPtr<ncs::cAbstractPlugIn> instance(nsa::cReferenceFrame& frame) = 0;
    [[nodiscard]] virtual nstd::tAutoPtr<ncs::cAbstractComponent> instance(nsa::cReferenceFrame& frame,
                                                                           ncs::cModuleMgr& manager) = 0;
    /// The version of the module, and that of the library that it was built against; nothing is compared.
    virtual void getModuleVersion(unsigned int& major, unsigned int& minor) const = 0;
    virtual void getModuleNELVersion(unsigned int& major, unsigned int& minor) const = 0;

    /// The file as it was named to the constructor.
    nucs::cString const& libFileName() const noexcept { return msLibFileName; }
    void incRef() noexcept { ++miReferences; }
    void decRef() noexcept { --miReferences; }
    unsigned int numReferences() const noexcept { return miReferences; }
    bool isUnused() const noexcept { return miReferences == 0; }

private:
    unsigned int miReferences = 0;
    nucs::cString msLibFileName;
};

} // namespace npi
