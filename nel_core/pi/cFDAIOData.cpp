#include "nel_core/pi/cFDAIOData.h"

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
}

} // namespace npi
