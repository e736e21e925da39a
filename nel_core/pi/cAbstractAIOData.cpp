#include "nel_core/pi/cAbstractAIOData.h"

#include "nel_core/pi/workChanges.h"
#include "nel_core/std/raise.h"

namespace npi {

cAbstractAIOData::~cAbstractAIOData()
{
    noteWorkChange();
}

cFDAIOData* cAbstractAIOData::isFDAIOData()
{
    return nullptr;
}

cFDAIOData& cAbstractAIOData::fdAIOData()
{
    cFDAIOData* const data = isFDAIOData();
    if (!data)
        nstd::raiseBug(
            nstd::makeMessage("$MTR$Asynchronous I/O data does not have file descriptor information!"));
    return *data;
}

} // namespace npi
