#include "cLogger.h"

#include "nel_core/nce/cCoreExtensionMgr.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/ncs/moduleEntry.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cAsciiString.h"

cLogger::cLogger(ncs::cModuleMgr& manager, nsa::cReferenceFrame& frame)
    : cAbstractComponent(manager, frame),
      mLog(manager.coreExtensions().createEnDec(frame.readNext<nstd::cAsciiString>()))
{
    info().setName("logger");
    addInterface(mLog);
}

cLogger::~cLogger()
{
    removeInterface(mLog);
}

NEL_MODULE_COMPONENT(cLogger)
NEL_MODULE_VERSION(1, 0)
