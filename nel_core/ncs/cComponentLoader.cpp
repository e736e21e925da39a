#include "nel_core/ncs/cComponentLoader.h"

#include <utility>

#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/pi/moduleLoader.h"
#include "nel_core/std/cAsciiString.h"

namespace ncs {

cAbstractComponent& cComponentLoader::load(cModuleMgr& manager, nucs::cString const& name,
                                           nsa::cReferenceFrame& frame, cComponentAddr const& deployedBy)
{
    auto const context = name.ascii();
    auto loader = npi::loadModule(name);
    auto component = loader->instance(frame, manager);
    component->setClassLoader(loader.get(), context);
    // The loader is owned here until the manager has it, so that a failure takes the component away first.
    manager.registerClassLoader(
        nstd::tAutoPtr<npi::cAbstractClassLoader>(loader.get(), nstd::tAutoPtrType::ptUnowned));
    static_cast<void>(loader.release());
    manager.handleComponentIterationLater(); // a pass deletes the loader of a component that is not accepted
    return manager.addComponent(std::move(component), deployedBy);
}

} // namespace ncs
