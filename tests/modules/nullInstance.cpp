#include "nel_core/ncs/moduleEntry.h"

void moduleInitPlugIn(ncs::cAbstractPlugIn*&, nsa::cReferenceFrame&) { }
void moduleInitComponent(ncs::cAbstractComponent*&, ncs::cModuleMgr&, nsa::cReferenceFrame&) { }
NEL_MODULE_VERSION(1, 0)
