#include "nel_core/io/cDir.h"

#include <utility>

#include "nel_core/io/cFs.h"
#include "nel_core/io/fileName.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/piAssert.h"

namespace nio {

cDir::cDir(cFs const& fs, nucs::cString const& path, int flags) : mpImpl(fs.createDirectoryImpl(path, flags))
{
}

cDir::cDir(nucs::cString const& path, int flags) : cDir(npi::system().fs, path, flags) { }

cDir::cDir(char const* path, int flags)
    : cDir(npi::system().fs, decodedPath(path, npi::system().fs.endec()), flags)
{
}

cDir::cDir(cDir const& other)
{
    if (other.mpImpl)
        mpImpl = other.mpImpl->createCopy();
}

cDir::cDir(cDir&& other) noexcept : mpImpl(std::move(other.mpImpl)) { }

cDir& cDir::operator=(cDir other) noexcept
{
    mpImpl.swap(other.mpImpl);
    return *this;
}

cDir::~cDir() = default;

void cDir::setNext()
{
    impl().setNext();
}

bool cDir::isEnd() const
{
    return impl().isEnd();
}

cDirInfo const& cDir::element() const
{
    return impl().element();
}

nstd::tAutoPtr<nstd::tConstListRefNode<cDirInfo>> cDir::createNodeCopy() const
{
    return nstd::tAutoPtr<nstd::tConstListRefNode<cDirInfo>>(new cDir(*this));
}

nstd::tConstListRef<cDirInfo> cDir::list() const
{
    return nstd::tConstListRef<cDirInfo>(*this);
}

bool cDir::operator==(cDir const& other) const
{
    if (isEnd() || other.isEnd())
        return isEnd() && other.isEnd();
    return impl().path() == other.impl().path() && element() == other.element();
}

cAbstractDirImpl& cDir::impl() const
{
    NEL_ASSERT(mpImpl.get() != 0);
    return *mpImpl;
}

} // namespace nio
