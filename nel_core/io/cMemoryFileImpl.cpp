#include "nel_core/io/cMemoryFileImpl.h"

#include <algorithm>
#include <cerrno>

#include "nel_core/io/cAbstractIOBlockDevice.h"
#include "nel_core/io/memoryAccess.h"
#include "nel_core/std/raise.h"

namespace nio {
namespace {

constexpr unsigned int kMaxSize = 0xFFFFFFFFu;
constexpr long long kMaxPosition = 0x7FFFFFFFFFFFFFFFLL;

} // namespace

cMemoryFileImpl::cMemoryFileImpl(cFs& fs, cAbstractIOBlockDevice& device,
                                 nstd::tSharedObject<cMemoryTree> const& tree)
    : cAbstractFileImpl(fs, device),
      mpTree(tree)
{
}

cMemoryFileImpl::cMemoryFileImpl(cMemoryFileImpl const& other, cAbstractIOBlockDevice& device)
    : cAbstractFileImpl(other.fs(), device),
      mpTree(other.mpTree),
      mpOpened(other.mpOpened),
      mbRemoveOnClose(other.mbRemoveOnClose),
      msName(other.msName)
{
}

cMemoryFileImpl::~cMemoryFileImpl()
{
    if (!mpOpened)
        return;
    try {
        cMemoryFileImpl::flush();
        cMemoryFileImpl::close();
    } catch (...) {
    }
}

nstd::tAutoPtr<cAbstractFileImpl> cMemoryFileImpl::deepCopy(cAbstractIOBlockDevice& device) const
{
    return nstd::tAutoPtr<cAbstractFileImpl>(new cMemoryFileImpl(*this, device));
}

nucs::cString const& cMemoryFileImpl::name() const
{
    return msName;
}

void cMemoryFileImpl::remove()
{
    auto const place = tree("unlink", msName)->find(msName);
    bool const isDirectory = place.node && place.node->isDirectory;
    int const refusal = isDirectory ? EISDIR : cMemoryTree::remove(place);
    if (refusal != 0)
        throwMemoryError("unlink", refusal, msName);
}

void cMemoryFileImpl::setRemoveOnClose()
{
    mbRemoveOnClose = true;
}

void cMemoryFileImpl::release()
{
    mbRemoveOnClose = false;
}

void cMemoryFileImpl::rename(nucs::cString const& to)
{
    renameInMemory(*tree("rename", msName), msName, to);
}

nstd::cDateTime cMemoryFileImpl::lastModified() const
{
    return stampOf(*requireOpen("stat").node, cFileInfoFlags::tsLastModification);
}

void cMemoryFileImpl::open(nucs::cString const& path, OpenMode mode, CreateMode create, WriteMode write, bool)
{
    close();
    nucs::cString name(path);
    auto* const made = new cOpened;
    nstd::tSharedObject<cOpened> opened(made);
    made->tree = tree("open", path);
    made->writes = mode == omWrite || mode == omReadWrite;
    made->reads = mode != omWrite;
    made->appends = made->writes && write == wmAppend;
    bool const creates = create == cmCreate || create == cmCreateAlways;
    made->node = findOrCreate(*made->tree, path, made->writes, creates);
    if (made->writes && write == wmTruncate) {
        made->node->bytes.truncate(0);
        made->node->modified = made->node->changed = nstd::cTime();
    }
    mpOpened.swap(opened);
    msName.swap(name);
}

tMemoryNode cMemoryFileImpl::findOrCreate(cMemoryTree const& tree, nucs::cString const& path, bool writes,
                                          bool creates)
{
    auto const place = tree.find(path);
    if (place.node) {
        if (writes && place.node->isDirectory)
            throwMemoryError("open", EISDIR, path);
        return place.node;
    }
    if (!writes || !creates || !place.directory)
        throwMemoryError("open", place.error, path);
    if (place.asDirectory)
        throwMemoryError("open", EISDIR, path);
    return cMemoryTree::create(place, false);
}

void cMemoryFileImpl::close()
{
    bd().touchSize();
    munmap();
    if (mpOpened) {
        try {
            if (mpOpened->writes)
                flush();
        } catch (...) {
            giveBack();
            throw;
        }
        giveBack();
    }
    if (mbRemoveOnClose)
        remove();
}

void cMemoryFileImpl::truncate(unsigned int size)
{
    auto& opened = requireOpen("truncate");
    if (!opened.writes)
        throwMemoryError("truncate", EINVAL);
    opened.node->bytes.truncate(size);
    opened.node->modified = opened.node->changed = nstd::cTime();
    bd().touchSize();
}

unsigned long long cMemoryFileImpl::readBytes(char* target, unsigned long long count)
{
    auto& opened = requireOpen("read");
    if (count == 0)
        return 0;
    if (!opened.reads)
        throwMemoryError("read", EBADF);
    if (opened.node->isDirectory)
        throwMemoryError("read", EISDIR);
    auto const& bytes = opened.node->bytes;
    if (opened.position >= bytes.size())
        return 0;
    auto const start = static_cast<unsigned int>(opened.position);
    auto const moved = static_cast<unsigned int>(std::min<unsigned long long>(count, bytes.size() - start));
    bytes.read(start, target, moved);
    opened.position += moved;
    opened.node->accessed = nstd::cTime();
    return moved;
}

unsigned long long cMemoryFileImpl::writeBytes(char const* source, unsigned long long count)
{
    auto& opened = requireOpen("write");
    bd().touchSize();
    if (count == 0)
        return 0;
    if (!opened.writes)
        throwMemoryError("write", EBADF);
    auto& node = *opened.node;
    auto const position = opened.appends ? node.bytes.size() : opened.position;
    if (position >= kMaxSize)
        throwMemoryError("write", EFBIG);
    auto const start = static_cast<unsigned int>(position);
    auto const moved = static_cast<unsigned int>(std::min<unsigned long long>(count, kMaxSize - start));
    node.bytes.write(start, source, moved);
    opened.position = position + moved;
    node.modified = node.changed = nstd::cTime();
    return moved;
}

void* cMemoryFileImpl::mmap()
{
    auto const& opened = requireOpen("mmap");
    if (opened.writes)
        nstd::raiseRuntime(nstd::makeMessage("$MTR$MMAP not supported in r/w mode!"));
    if (!maMapping.empty())
        nstd::raiseRuntime(nstd::makeMessage("$MTR$File is already memory mapped!"));
    if (opened.node->isDirectory)
        throwMemoryError("mmap", ENODEV);
    auto const& bytes = opened.node->bytes;
    if (bytes.size() == 0)
        throwMemoryError("mmap", EINVAL);
    nstd::tArray<char> mapping(bytes.size());
    bytes.read(0, mapping.data(), bytes.size());
    maMapping.swap(mapping);
    return maMapping.data();
}

unsigned long long cMemoryFileImpl::seek(long long offset, SeekMode mode)
{
    auto& opened = requireOpen("seek");
    bd().touchSize();
    unsigned long long base = 0;
    if (mode == smCurrent)
        base = opened.position;
    else if (mode == smEnd)
        base = opened.node->bytes.size();
    auto const from = static_cast<long long>(base); // never above the greatest position
    if (offset < -from)
        throwMemoryError("seek", EINVAL);
    if (offset > kMaxPosition - from)
        throwMemoryError("seek", EOVERFLOW);
    opened.position = static_cast<unsigned long long>(from + offset);
    return opened.position;
}

unsigned long long cMemoryFileImpl::pos() const
{
    return requireOpen("seek").position;
}

void cMemoryFileImpl::flush()
{
    bd().flush();
    requireOpen("flush");
}

void cMemoryFileImpl::munmap()
{
    maMapping.clear();
}

nstd::tSharedObject<cMemoryTree> cMemoryFileImpl::tree(char const* operation, nucs::cString const& path) const
{
    return requireTree(mpTree, operation, path);
}

cMemoryFileImpl::cOpened& cMemoryFileImpl::requireOpen(char const* operation) const
{
    if (!mpOpened)
        throwMemoryError(operation, EBADFD);
    return *mpOpened;
}

void cMemoryFileImpl::giveBack() noexcept
{
    nstd::tSharedObject<cOpened>().swap(mpOpened);
}

} // namespace nio
