#include "nel_core/io/cFileWatch.h"

#include <utility>

#include "nel_core/io/cFs.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cDateTime.h"

namespace nio {

cFileWatch::cFileWatch(nucs::cString const& path)
    : mFile(npi::system().fs.fileOpenRead(path)),
      mLastModification(mFile.lastModified().utcTime())
{
    sigFileChanged.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
    nstd::cAsciiString name("File I/O change notifier (");
    name += path.ascii('?');
    name += ')';
    mWork.setName(std::move(name));
    mWork.sigAction.connect(nrmi::slot(this, &cFileWatch::poll));
    npi::schedule(mWork);
}

cFileWatch::~cFileWatch() = default;

void cFileWatch::start(unsigned int intervalMs)
{
    mWork.start(intervalMs, npi::cWork::Periodic);
}

void cFileWatch::stop()
{
    mWork.stop();
}

piVoid cFileWatch::poll()
{
    auto const modified = mFile.lastModified().utcTime();
    if (modified == mLastModification)
        return piVoid();
    mLastModification = modified;
    return sigFileChanged(); // nothing after this: a slot may have deleted the watch
}

} // namespace nio
