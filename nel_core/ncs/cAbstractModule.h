#pragma once

#include "nel_core/ncs/cAbstractInterfaceProvider.h"
#include "nel_core/ncs/cModuleInfo.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/sa/fwd.h"

namespace ncs {

/// A part of an application: a component or a plug-in.
///
/// A module may live in a shared object, which stays loaded as long as the module does: the module holds one
/// reference of its class loader.
class NEL_EXPORT cAbstractModule : public nrmi::cConnectable, public cAbstractInterfaceProvider {
public:
    cAbstractModule();
    /// The frame is what the module was created with; it is not used here.
    explicit cAbstractModule(nsa::cReferenceFrame& frame);
    /// Releases the reference of the class loader.
    ~cAbstractModule() override;

    virtual bool isPlugIn() const = 0;
    virtual bool isComponent() const = 0;
    /// Settings that last; nothing is stored, loaded or applied here.
    virtual void storeSettings(nsa::cAbstractSerializer& serializer) const;
    virtual void loadSettings(nsa::cAbstractDeserializer& deserializer);
    virtual void applySettings();

    /// Whether the module is linked into the application instead of loaded.
    bool isStatic() const noexcept { return mpClassLoader == nullptr; }
    cModuleInfo& info() noexcept { return mInfo; }
    cModuleInfo const& moduleInfo() const noexcept { return mInfo; }
    /// The loader that the module came from, not owned; null for a static module.
    npi::cAbstractClassLoader* classLoader() const noexcept { return mpClassLoader; }
    /// Stores the loader, one reference of which becomes the module's, and sets the context of info().
    void setClassLoader(npi::cAbstractClassLoader* loader, nstd::cAsciiString const& context);

private:
    npi::cAbstractClassLoader* mpClassLoader = nullptr;
    cModuleInfo mInfo;
};

} // namespace ncs
