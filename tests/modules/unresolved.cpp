#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/moduleEntry.h"

void isNowhere();

void moduleInitPlugIn(ncs::cAbstractPlugIn*&, nsa::cReferenceFrame&)
{
    isNowhere();
}

NEL_MODULE_VERSION(1, 0)
