#include "nel_core/nce/cAbstractEnDecExtension.h"
#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/moduleEntry.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cBuildInfo.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/cEnDecUTF8.h"

namespace {

// Offers a codec under the name "LOADED".
class cPlugIn : public ncs::cAbstractPlugIn, private nce::cAbstractEnDecExtension {
public:
    using cAbstractPlugIn::cAbstractPlugIn;

    bool isCoreExtension() const override { return true; }
    nce::cAbstractCoreExtension const& coreExtension() const override { return *this; }

private:
    nstd::cAsciiString description() const override { return "loaded"; }
    nstd::cBuildInfo const& buildInfo() const override { return mBuildInfo; }
    bool supports(nstd::cAsciiString const& name) const override { return name == "LOADED"; }
    nstd::tAutoPtr<nucs::cAbstractEnDec> createEnDec(nstd::cAsciiString const&) const override
    {
        return nstd::tAutoPtr<nucs::cAbstractEnDec>(new nucs::cEnDecUTF8);
    }

    nstd::cBuildInfo mBuildInfo;
};

} // namespace

NEL_MODULE_PLUGIN(cPlugIn)
NEL_MODULE_VERSION(1, 0)
