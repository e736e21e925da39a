#include <stdexcept>

#include "nel_core/ncs/moduleEntry.h"
#include "nel_core/std/raise.h"

struct cOwnError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

void moduleInitPlugIn(ncs::cAbstractPlugIn*&, nsa::cReferenceFrame&)
{
    nstd::raiseRuntime(nstd::makeMessage("$MTR$No gauge %n%!", 7u));
}

void moduleInitComponent(ncs::cAbstractComponent*&, ncs::cModuleMgr&, nsa::cReferenceFrame&)
{
    throw cOwnError("component");
}

NEL_MODULE_VERSION(1, 0)
