#include "nel_core/pi/cFDAIOData.h"

#include "nel_core/pi/workChanges.h"

namespace npi {

cFDAIOData::cFDAIOData() = default;

cFDAIOData::~cFDAIOData() = default;

cFDAIOData* cFDAIOData::isFDAIOData()
{
    return this;
}

void cFDAIOData::addFd(int fd, unsigned int events)
{
    maFds.append(tFdInfo(fd, events));
    noteWorkChange();
}

} // namespace npi
