#include "nel_core/io/cMemoryFs.h"

#include <cerrno>

#include "nel_core/io/cMemoryDirImpl.h"
#include "nel_core/io/cMemoryFileImpl.h"
#include "nel_core/io/cMemoryFileInfoImpl.h"
#include "nel_core/io/cPath.h"
#include "nel_core/io/cPermissions.h"
#include "nel_core/io/fileName.h"
#include "nel_core/io/memoryAccess.h"

namespace nio {
namespace {

constexpr unsigned int kStored = cPermissions::pmArchive - 1; // all bits below

nucs::cString prefixOf(nucs::cString const& prefix)
{
    return prefix.empty() ? nucs::cString("/") : asDirectory(prefix);
}

} // namespace

cMemoryFs::cMemoryFs(cFs& fs, nucs::cString const& prefix)
    : cAbstractFsImpl(fs),
      mpTree(new cMemoryTree(prefixOf(prefix)))
{
}

cMemoryFs::~cMemoryFs() = default;

bool cMemoryFs::exists(nucs::cString const& path, bool, nstd::cDateTime* stamp,
                       cFileInfoFlags::TimeStamp which) const
{
    auto const place = mpTree->find(path);
    if (place.node && stamp)
        *stamp = stampOf(*place.node, which);
    return !place.node.null();
}

void cMemoryFs::remove(nucs::cString const& path)
{
    auto const place = mpTree->find(path);
    if (!place.node && place.error != EINVAL)
        return;
    int const refusal = cMemoryTree::remove(place);
    if (refusal != 0)
        throwMemoryError("unlink", refusal, path);
}

cPath cMemoryFs::cwd() const
{
    return cPath(mpTree->prefix(), false);
}

void cMemoryFs::mkdir(nucs::cString const& path)
{
    auto const place = mpTree->find(path);
    if (place.node || !place.directory)
        throwMemoryError("mkdir", place.node ? EEXIST : place.error, path);
    cMemoryTree::create(place, true);
}

void cMemoryFs::rename(nucs::cString const& from, nucs::cString const& to)
{
    renameInMemory(*mpTree, from, to);
}

bool cMemoryFs::supportsSymLinks() const
{
    return false;
}

void cMemoryFs::createSymLink(nucs::cString const&, nucs::cString const& link)
{
    throwMemoryError("symlink", EPERM, link);
}

void cMemoryFs::setPermissions(nucs::cString const& path, cPermissions const& permissions, bool)
{
    auto const node = requireNode(*mpTree, "chmod", path);
    node->permissions = static_cast<unsigned int>(permissions.permissions() & kStored);
    node->changed = nstd::cTime();
}

nstd::tAutoPtr<cAbstractDirImpl> cMemoryFs::createDirImpl(cFs const& fs, nucs::cString const& path,
                                                          int flags) const
{
    return nstd::tAutoPtr<cAbstractDirImpl>(new cMemoryDirImpl(fs, path, flags, mpTree));
}

nstd::tAutoPtr<cAbstractFileInfoImpl> cMemoryFs::createFileInfoImpl(cFs const& fs,
                                                                    nucs::cString const& path) const
{
    return nstd::tAutoPtr<cAbstractFileInfoImpl>(new cMemoryFileInfoImpl(fs, path, mpTree));
}

nstd::tAutoPtr<cAbstractFileImpl> cMemoryFs::createFileImpl(cFs& fs, cAbstractIOBlockDevice& device,
                                                            nucs::cString const&) const
{
    return nstd::tAutoPtr<cAbstractFileImpl>(new cMemoryFileImpl(fs, device, mpTree));
}

bool cMemoryFs::isUsed() const
{
    return !mpTree.unique();
}

bool cMemoryFs::matches(nucs::cString& path, Operation operation)
{
    if (operation == opBind)
        return false;
    return operation == opUnbind ? mpTree->isPrefix(path) : mpTree->isBelow(path);
}

} // namespace nio
