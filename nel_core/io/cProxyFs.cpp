#include "nel_core/io/cProxyFs.h"

#include "nel_core/io/cAbstractDirImpl.h"
#include "nel_core/io/cAbstractFileImpl.h"
#include "nel_core/io/cAbstractFileInfoImpl.h"
#include "nel_core/io/cPath.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cString.h"

namespace nio {
namespace {

[[noreturn]] void throwNoDelegate(nucs::cString const& path)
{
    if (path.empty())
        nstd::raiseBug(nstd::makeMessage("$MTR$ProxyFs has not valid filesystems!"));
    nstd::raiseBug(nstd::makeMessage(
        "$MTR$ProxyFs has not valid filesystem for %path% and no registered filesystems at all!", path));
}

[[noreturn]] void throwAcrossFilesystems(nucs::cString const& from, nucs::cString const& to)
{
    nstd::raiseRuntime(nstd::makeMessage(
        "$MTR$Rename across filesystem boundaries is not supported (%sFrom% -> %sTo&!", from, to));
}

} // namespace

cProxyFs::cProxyFs(cFs& fs) : cAbstractFsImpl(fs) { }

cProxyFs::~cProxyFs() = default;

bool cProxyFs::exists(nucs::cString const& path, bool followLinks, nstd::cDateTime* stamp,
                      cFileInfoFlags::TimeStamp which) const
{
    nucs::cString own(path);
    return delegate(own, opExists)->exists(own, followLinks, stamp, which);
}

void cProxyFs::remove(nucs::cString const& path)
{
    nucs::cString own(path);
    delegate(own, opRemove)->remove(own);
}

cPath cProxyFs::cwd() const
{
    nucs::cString none;
    return delegate(none, opCwd)->cwd();
}

void cProxyFs::mkdir(nucs::cString const& path)
{
    nucs::cString own(path);
    delegate(own, opMkdir)->mkdir(own);
}

void cProxyFs::rename(nucs::cString const& from, nucs::cString const& to)
{
    nucs::cString ownFrom(from), ownTo(to);
    commonDelegate(ownFrom, ownTo)->rename(ownFrom, ownTo);
}

bool cProxyFs::supportsSymLinks() const
{
    nucs::cString none;
    return delegate(none, opSupportsSymLinks)->supportsSymLinks();
}

void cProxyFs::createSymLink(nucs::cString const& target, nucs::cString const& link)
{
    nucs::cString ownTarget(target), ownLink(link);
    commonDelegate(ownTarget, ownLink)->createSymLink(ownTarget, ownLink);
}

void cProxyFs::setPermissions(nucs::cString const& path, cPermissions const& permissions, bool followLinks)
{
    nucs::cString own(path);
    delegate(own, opSetPermissions)->setPermissions(own, permissions, followLinks);
}

nstd::tAutoPtr<cAbstractDirImpl> cProxyFs::createDirImpl(cFs const& fs, nucs::cString const& path,
                                                         int flags) const
{
    nucs::cString own(path);
    return delegate(own, opCreateDirImpl)->createDirImpl(fs, own, flags);
}

nstd::tAutoPtr<cAbstractFileInfoImpl> cProxyFs::createFileInfoImpl(cFs const& fs,
                                                                   nucs::cString const& path) const
{
    nucs::cString own(path);
    return delegate(own, opCreateFileInfoImpl)->createFileInfoImpl(fs, own);
}

nstd::tAutoPtr<cAbstractFileImpl> cProxyFs::createFileImpl(cFs& fs, cAbstractIOBlockDevice& device,
                                                           nucs::cString const& path) const
{
    nucs::cString own(path);
    return delegate(own, opCreateFileImpl)->createFileImpl(fs, device, own);
}

void cProxyFs::bind(nstd::tAutoPtr<cAbstractFsImpl> impl)
{
    NEL_ASSERT(impl.get() != 0);
    nucs::cString none;
    bool const isNative = impl->matches(none, opBind);
    tImpl bound(impl);
    if (isNative)
        mpNative.swap(bound);
    else
        maBound.append(bound);
}

void cProxyFs::unbind(nucs::cString const& path)
{
    nstd::tList<tImpl> kept;
    bool hasRemoved = false;
    for (auto const& impl : maBound) {
        nucs::cString own(path);
        if (!impl->matches(own, opUnbind)) {
            kept.append(impl);
            continue;
        }
        if (impl->isUsed())
            nstd::raiseBug(nstd::makeMessage("$MTR$Filesystem (%s%) is in use!", path));
        hasRemoved = true;
    }
    if (hasRemoved)
        maBound.swap(kept); // what is removed dies last
    else
        unbindNative();
}

void cProxyFs::unbindNative()
{
    if (mpNative && mpNative->isUsed())
        nstd::raiseBug(nstd::makeMessage("$MTR$Native filesystem  is in use!"));
    tImpl().swap(mpNative);
}

// A handle, since the operation may unbind what it runs on.
cProxyFs::tImpl cProxyFs::findDelegate(nucs::cString& path, Operation operation) const
{
    for (auto const& impl : maBound) {
        nucs::cString own(path);
        if (impl->matches(own, operation)) {
            path.swap(own);
            return impl;
        }
    }
    return mpNative;
}

cProxyFs::tImpl cProxyFs::delegate(nucs::cString& path, Operation operation) const
{
    auto const found = findDelegate(path, operation);
    if (!found)
        throwNoDelegate(path);
    return found;
}

cProxyFs::tImpl cProxyFs::commonDelegate(nucs::cString& first, nucs::cString& second) const
{
    auto const from = first, to = second;
    auto const found = delegate(first, opRename);
    if (found != delegate(second, opRename))
        throwAcrossFilesystems(from, to);
    return found;
}

} // namespace nio
