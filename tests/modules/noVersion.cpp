#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/moduleEntry.h"

NEL_MODULE_PLUGIN(ncs::cAbstractPlugIn)

void nelVersion(unsigned int&, unsigned int&) { }
