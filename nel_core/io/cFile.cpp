#include "nel_core/io/cFile.h"

#include <utility>

#include "nel_core/io/cFs.h"
#include "nel_core/io/cIOExceptions.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/ucs/cAbstractEnDec.h"
#include "nel_core/ucs/cString.h"

namespace nio {
namespace {

nucs::cString decodedPath(char const* path)
{
    nstd::tArray<char> const bytes(path);
    nucs::cString decoded;
    if (!bytes.empty())
        npi::system().fs.endec().decode(bytes, decoded);
    return decoded;
}

} // namespace

// Drops the cache of a file when open() or close() is left, however that is: its bytes are those of a file
// that is closed.
class cFile::cCacheDrop {
public:
    explicit cCacheDrop(cFile& file) noexcept : mFile(file) { file.forgetMapping(); }
    cCacheDrop(cCacheDrop const&) = delete;
    cCacheDrop& operator=(cCacheDrop const&) = delete;
    ~cCacheDrop() { mFile.dropCache(mbAppends); }

    void setAppends(bool appends) noexcept { mbAppends = appends; }

private:
    cFile& mFile;
    bool mbAppends = false;
};

cFile::cFile(cFs& fs, nucs::cString const& path) : mpImpl(fs.createFileImpl(*this, path)) { }

cFile::cFile(nucs::cString const& path, OpenMode mode, CreateMode create, WriteMode write)
    : cFile(npi::system().fs, path)
{
    open(path, mode, create, write);
}

cFile::cFile(char const* path, OpenMode mode, CreateMode create, WriteMode write)
    : cFile(decodedPath(path), mode, create, write)
{
}

cFile::cFile(cFile const& other) : cAbstractIOBlockDevice(other), mpImpl(other.mpImpl->deepCopy(*this))
{
    if (other.mpMapping != nullptr)
        setPreferredBlockSize(other.miUnmappedBlockSize);
}

cFile::cFile(cFile&& other) : cFile(other.fs(), other.name())
{
    swap(other);
}

cFile& cFile::operator=(cFile const& other)
{
    cFile copy(other);
    swap(copy);
    return *this;
}

// The implementation flushes through this device, which needs its pointer until it is gone.
cFile::~cFile()
{
    {
        nstd::tAutoPtr<cAbstractFileImpl> const dying(mpImpl.get(), mpImpl.pointerType());
    }
    static_cast<void>(mpImpl.release());
}

void cFile::swap(cFile& other) noexcept
{
    cAbstractIOBlockDevice::swap(other);
    mpImpl.swap(other.mpImpl);
    mpImpl->swapBD(*other.mpImpl);
    std::swap(mpMapping, other.mpMapping);
    std::swap(miMappingLength, other.miMappingLength);
    std::swap(miUnmappedBlockSize, other.miUnmappedBlockSize);
}

unsigned long long cFile::read(void* target, unsigned long long count)
{
    return mpImpl->readBytes(static_cast<char*>(target), count);
}

unsigned long long cFile::write(void const* source, unsigned long long count)
{
    return mpImpl->writeBytes(static_cast<char const*>(source), count);
}

nucs::cString const& cFile::name() const
{
    return mpImpl->name();
}

unsigned long long cFile::seek(long long offset, SeekMode mode)
{
    return mpImpl->seek(offset, mode);
}

unsigned long long cFile::pos() const
{
    return mpImpl->pos();
}

void cFile::truncate(unsigned int size)
{
    mpImpl->truncate(size);
}

void cFile::mmap()
{
    auto const* const mapping = static_cast<char const*>(mpImpl->mmap());
    miMappingLength = proxyLength();
    miUnmappedBlockSize = proxyPreferredBlockSize();
    mpMapping = mapping;
    setPreferredBlockSize(0);
}

char const& cFile::proxyAt(unsigned int i) const
{
    return mpMapping != nullptr && i < miMappingLength ? mpMapping[i] : cAbstractIOBlockDevice::proxyAt(i);
}

char const* cFile::proxyProvideData(unsigned int start, unsigned int count) const
{
    bool const isMapped =
        mpMapping != nullptr && start <= miMappingLength && count <= miMappingLength - start;
    return isMapped ? mpMapping + start : cAbstractIOBlockDevice::proxyProvideData(start, count);
}

void cFile::remove()
{
    mpImpl->remove();
}

void cFile::setRemoveOnClose()
{
    mpImpl->setRemoveOnClose();
}

void cFile::release()
{
    mpImpl->release();
}

void cFile::rename(nucs::cString const& to)
{
    mpImpl->rename(to);
}

nstd::cDateTime cFile::lastModified() const
{
    return mpImpl->lastModified();
}

void cFile::open(nucs::cString const& path, OpenMode mode, CreateMode create, WriteMode write,
                 bool followLinks)
{
    cCacheDrop drop(*this);
    try {
        mpImpl->open(path, mode, create, write, followLinks);
    } catch (nstd::cAbstractException const& cause) {
        cIOExceptions::throwUnableOpenFile(cause, path);
    }
    drop.setAppends(mode != omRead && write == wmAppend);
}

void cFile::close()
{
    cCacheDrop const drop(*this);
    mpImpl->close();
}

void cFile::flush()
{
    mpImpl->flush();
}

cFs& cFile::fs() const
{
    return mpImpl->fs();
}

void cFile::forgetMapping() noexcept
{
    if (mpMapping == nullptr)
        return;
    mpMapping = nullptr;
    miMappingLength = 0;
    if (proxyPreferredBlockSize() == 0)
        setPreferredBlockSize(miUnmappedBlockSize);
}

} // namespace nio
