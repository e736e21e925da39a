#include "nel_core/io/cFs.h"

#include <utility>

#include "nel_core/io/cAbstractDirImpl.h"
#include "nel_core/io/cAbstractFileImpl.h"
#include "nel_core/io/cAbstractFileInfoImpl.h"
#include "nel_core/io/cDir.h"
#include "nel_core/io/cFile.h"
#include "nel_core/io/cFileInfo.h"
#include "nel_core/io/cIOExceptions.h"
#include "nel_core/io/cPath.h"
#include "nel_core/io/cPermissions.h"
#include "nel_core/io/fileName.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/raise.h"
#include "nel_core/std/tStack.h"

namespace nio {
namespace {

constexpr int kSkipDots = cDir::dfSkipDot | cDir::dfSkipDotDot;

[[noreturn]] void throwNoDirectory(nucs::cString const& item, nucs::cString const& path)
{
    nstd::cRuntimeException const cause(nstd::makeMessage("$MTR$Item \"%en%\" is not a directory!", item));
    cIOExceptions::throwUnableCreatePath(cause, path);
}

// Removes everything that `top` walks, depth first; each walk on the stack stands at the directory above it.
void removeEntries(nstd::tAutoPtr<cAbstractDirImpl> top)
{
    nstd::tStack<nstd::tSharedObject<cAbstractDirImpl>> open;
    open.push(nstd::tSharedObject<cAbstractDirImpl>(top));
    while (!open.empty()) {
        auto& walk = *open.top();
        if (walk.isEnd()) {
            open.pop();
            if (open.empty())
                return;
        } else if (auto entries = walk.enterEntry()) {
            open.push(nstd::tSharedObject<cAbstractDirImpl>(entries));
            continue;
        }
        open.top()->removeEntry();
        open.top()->setNext();
    }
}

} // namespace

// The codec comes first: the root takes it from here.
cFs::cFs() : cFs(npi::system().defaults.enDec) { }

cFs::cFs(nucs::cAbstractEnDec const& codec) : mpCodec(codec)
{
    mpRoot = nstd::tSharedObject<cAbstractFsImpl>(npi::cPlatform::createFsImpl(*this));
}

cFs::cFs(cFs const& other) = default;
cFs& cFs::operator=(cFs const& other) = default;
cFs::~cFs() = default;

void cFs::swap(cFs& other) noexcept
{
    mpRoot.swap(other.mpRoot);
    mpCodec.swap(other.mpCodec);
}

nucs::cAbstractEnDec const& cFs::endec() const
{
    return *mpCodec;
}

void cFs::bind(nstd::tAutoPtr<cAbstractFsImpl> impl)
{
    mpRoot->bind(std::move(impl));
}

void cFs::unbind(nucs::cString const& path)
{
    mpRoot->unbind(path);
}

bool cFs::exists(nucs::cString const& path, bool followLinks, nstd::cDateTime* stamp,
                 cFileInfoFlags::TimeStamp which) const
{
    return mpRoot->exists(path, followLinks, stamp, which);
}

void cFs::remove(nucs::cString const& path)
{
    mpRoot->remove(path);
}

cPath cFs::cwd() const
{
    return mpRoot->cwd();
}

void cFs::mkdir(nucs::cString const& path)
{
    mpRoot->mkdir(path);
}

void cFs::rename(nucs::cString const& from, nucs::cString const& to)
{
    mpRoot->rename(from, to);
}

bool cFs::supportsSymLinks() const
{
    return mpRoot->supportsSymLinks();
}

void cFs::createSymLink(nucs::cString const& target, nucs::cString const& link)
{
    mpRoot->createSymLink(target, link);
}

void cFs::setPermissions(nucs::cString const& path, cPermissions const& permissions, bool followLinks)
{
    mpRoot->setPermissions(path, permissions, followLinks);
}

nstd::tAutoPtr<cAbstractFileInfoImpl> cFs::createFileInfoImpl(nucs::cString const& path) const
{
    return mpRoot->createFileInfoImpl(*this, path);
}

nstd::tAutoPtr<cAbstractDirImpl> cFs::createDirectoryImpl(nucs::cString const& path, int flags) const
{
    return mpRoot->createDirImpl(*this, path, flags);
}

nstd::tAutoPtr<cAbstractFileImpl> cFs::createFileImpl(cAbstractIOBlockDevice& device,
                                                      nucs::cString const& path)
{
    return mpRoot->createFileImpl(*this, device, path);
}

cFileInfo cFs::fileInfo(nucs::cString const& path) const
{
    return cFileInfo(path, *this);
}

bool cFs::fileExists(nucs::cString const& path, bool followLinks) const
{
    cFileInfo const info(path);
    return info.exists(followLinks) && info.isFile(followLinks);
}

bool cFs::isDeadSymLink(nucs::cString const& path) const
{
    return cFileInfo(path).isDeadSymLink();
}

nstd::tConstListRef<cDirInfo> cFs::openDir(nucs::cString const& path, int flags) const
{
    nstd::tAutoPtr<nstd::tConstListRefNode<cDirInfo>> node(new cDir(*this, path, flags));
    return nstd::tConstListRef<cDirInfo>(std::move(node));
}

cFile cFs::openFile(nucs::cString const& path, OpenMode mode, CreateMode create, WriteMode write)
{
    cFile file(*this, path);
    file.open(path, mode, create, write, true);
    return file;
}

cFile cFs::fileOpenRead(nucs::cString const& path)
{
    return openFile(path, omRead, cmMustExist, wmTruncate);
}

cFile cFs::fileOpenWrite(nucs::cString const& path, CreateMode create, WriteMode write)
{
    return openFile(path, omReadWrite, create, write);
}

void cFs::createPath(cPath const& path)
{
    for (unsigned int n = 0;; ++n) {
        auto const prefix = path.getParts(n);
        if (prefix.empty())
            return;
        auto const directory = withoutTrailingSlash(prefix);
        if (!exists(directory, true))
            mkdir(directory);
        else if (!fileInfo(directory).isDir(true))
            throwNoDirectory(prefix, path.path());
    }
}

nucs::cString cFs::tryFindInPath(cPath const& directory, nucs::cString const& name)
{
    auto path = directory.path();
    cFileInfo::setFileName(path, name, true);
    return fileExists(path, true) ? path : nucs::cString();
}

// Without its last separators: with one, the system would take a link to a directory for that directory.
void cFs::removeRecursive(nucs::cString const& path, bool followLink)
{
    auto const top = withoutTrailingSlash(path);
    if (!exists(top, false))
        return;
    auto const info = fileInfo(top);
    bool const isLink = info.isSymLink();
    if (isLink ? followLink && exists(top, true) && info.isDir(true) : info.isDir(false)) {
        int const flags = kSkipDots | cAbstractDirImpl::rfAnyName;
        removeEntries(createDirectoryImpl(top, isLink ? flags : flags | cAbstractDirImpl::rfNoFollow));
    }
    remove(top);
}

} // namespace nio
