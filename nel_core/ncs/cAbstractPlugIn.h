#pragma once

#include "nel_core/nce/fwd.h"
#include "nel_core/ncs/cAbstractModule.h"

namespace ncs {

/// A module that is loaded and kept, see cPlugInMgr; a core extension is one, see nce::cCoreExtensionMgr.
class NEL_EXPORT cAbstractPlugIn : public cAbstractModule {
public:
    cAbstractPlugIn();
    explicit cAbstractPlugIn(nsa::cReferenceFrame& frame);
    ~cAbstractPlugIn() override;

    bool isPlugIn() const override;
    bool isComponent() const override;
    void storeSettings(nsa::cAbstractSerializer& serializer) const override;
    void loadSettings(nsa::cAbstractDeserializer& deserializer) override;
    void applySettings() override;
    /// Whether there is a coreExtension(); false here.
    virtual bool isCoreExtension() const;
    /// The core extension, which lives as long as the plug-in. Raises cNCSExceptions::throwNoCoreExtension()
    /// here.
    virtual nce::cAbstractCoreExtension const& coreExtension() const;
    /// A word for the kind of plug-in; "none" here.
    virtual nstd::cAsciiString pluginTypeName() const;
};

} // namespace ncs
