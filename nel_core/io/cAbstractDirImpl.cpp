#include "nel_core/io/cAbstractDirImpl.h"

#include "nel_core/io/cDir.h"
#include "nel_core/io/cDirInfo.h"
#include "nel_core/io/cFileInfo.h"
#include "nel_core/io/cFs.h"

namespace nio {

cAbstractDirImpl::~cAbstractDirImpl() = default;

nstd::tAutoPtr<cAbstractDirImpl> cAbstractDirImpl::enterEntry() const
{
    auto const& entry = element().fullPath();
    if (!mFs.exists(entry, false) || !mFs.fileInfo(entry).isDir(false))
        return nstd::tAutoPtr<cAbstractDirImpl>();
    return mFs.createDirectoryImpl(entry, cDir::dfSkipDot | cDir::dfSkipDotDot | rfNoFollow | rfAnyName);
}

void cAbstractDirImpl::removeEntry()
{
    cFs(mFs).remove(element().fullPath());
}

} // namespace nio
