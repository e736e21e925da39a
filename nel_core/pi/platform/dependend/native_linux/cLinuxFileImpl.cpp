#include "nel_core/pi/platform/dependend/native_linux/cLinuxFileImpl.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "nel_core/io/cAbstractIOBlockDevice.h"
#include "nel_core/io/cFs.h"
#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/platform/dependend/native_linux/osError.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cAbstractEnDec.h"

namespace npi {
namespace {

constexpr int kNotOpen = EBADFD;
constexpr int kFirstOwnDescriptor = 3; // behind standard input, output and error
constexpr ::mode_t kFileMode = 0644;
constexpr unsigned long long kMaxBlock = 128u << 20;
constexpr unsigned int kMaxInterruptions = 3;
constexpr unsigned int kReadErrorLine = 274; // under which the debug entry of readBytes() appears

static_assert(sizeof(::off_t) == 8, "files are larger than 2 GiB");

// A value that is not listed seeks from the start.
constexpr int whenceOf(nio::SeekMode mode)
{
    if (mode == nio::smCurrent)
        return SEEK_CUR;
    return mode == nio::smEnd ? SEEK_END : SEEK_SET;
}

int openFlags(nio::OpenMode mode, nio::CreateMode create, nio::WriteMode write, bool followLinks)
{
    int flags = O_LARGEFILE | O_CLOEXEC | (followLinks ? 0 : O_NOFOLLOW);
    if (mode != nio::omWrite && mode != nio::omReadWrite)
        return flags | O_RDONLY;
    flags |= mode == nio::omWrite ? O_WRONLY : O_RDWR;
    if (create == nio::cmCreate || create == nio::cmCreateAlways)
        flags |= O_CREAT;
    if (write == nio::wmAppend)
        flags |= O_APPEND;
    return write == nio::wmTruncate ? flags | O_TRUNC : flags;
}

// A descriptor behind the standard ones in place of 0, which stands for a file that is not open; -1 with
// errno when there is none.
int movedFromZero(int descriptor)
{
    if (descriptor != 0)
        return descriptor;
    int const moved = ::fcntl(descriptor, F_DUPFD_CLOEXEC, kFirstOwnDescriptor);
    int const code = errno;
    ::close(descriptor);
    errno = code;
    return moved;
}

// Moves `count` bytes block by block: `step` gets the number of bytes moved so far and the size of the block,
// and gives what the system's call gives; `fail` gets errno and the size of the block, and raises.
template<typename Step, typename Fail>
unsigned long long transfer(unsigned long long count, Step&& step, Fail&& fail)
{
    unsigned int interruptions = 0;
    for (unsigned long long done = 0; done < count;) {
        auto const block = static_cast<std::size_t>(std::min(count - done, kMaxBlock));
        ::ssize_t const moved = step(static_cast<std::size_t>(done), block);
        int const code = errno;
        if (moved < 0) {
            if (code != EINTR || (++interruptions == kMaxInterruptions && done == 0))
                fail(code, block);
            if (interruptions == kMaxInterruptions)
                return done;
            continue;
        }
        done += static_cast<std::size_t>(moved);
        if (static_cast<std::size_t>(moved) < block)
            return done;
    }
    return count;
}

} // namespace

cLinuxFileImpl::cLinuxFileImpl(nio::cFs& fs, nio::cAbstractIOBlockDevice& device)
    : cLinuxFileImpl(fs, device, fs.endec())
{
}

cLinuxFileImpl::cLinuxFileImpl(nio::cFs& fs, nio::cAbstractIOBlockDevice& device,
                               nucs::cAbstractEnDec const& codec)
    : cAbstractFileImpl(fs, device),
      mCodec(codec)
{
}

cLinuxFileImpl::~cLinuxFileImpl()
{
    if (miDescriptor == 0)
        return;
    try {
        cLinuxFileImpl::flush();
        cLinuxFileImpl::close();
    } catch (...) {
        giveBack();
    }
}

nstd::tAutoPtr<nio::cAbstractFileImpl> cLinuxFileImpl::deepCopy(nio::cAbstractIOBlockDevice& device) const
{
    auto* const copy = new cLinuxFileImpl(fs(), device, mCodec);
    nstd::tAutoPtr<nio::cAbstractFileImpl> owner(copy);
    copy->msName = msName;
    if (miDescriptor != 0) {
        int const descriptor = ::fcntl(miDescriptor, F_DUPFD_CLOEXEC, kFirstOwnDescriptor);
        if (descriptor < 0)
            throwOSError("dup", errno, msName);
        copy->miDescriptor = descriptor;
    }
    copy->mbWritable = mbWritable;
    copy->mbRemoveOnClose = mbRemoveOnClose;
    return owner;
}

void cLinuxFileImpl::remove()
{
    auto const name = encodedName(msName, mCodec, "unlink");
    if (::unlink(name.data()) != 0)
        throwOSError("unlink", errno, msName);
}

void cLinuxFileImpl::rename(nucs::cString const& to)
{
    rename(msName, to, mCodec);
}

void cLinuxFileImpl::rename(nucs::cString const& from, nucs::cString const& to,
                            nucs::cAbstractEnDec const& codec)
{
    auto const fromName = encodedName(from, codec, "rename");
    auto const toName = encodedName(to, codec, "rename");
    if (::rename(fromName.data(), toName.data()) != 0)
        throwOSError("rename", errno, from);
}

nstd::cDateTime cLinuxFileImpl::lastModified() const
{
    requireOpen("stat");
    struct ::stat status;
    if (::fstat(miDescriptor, &status) != 0)
        throwOSError("stat", errno);
    return nstd::cDateTime(nstd::cTime(static_cast<unsigned long long>(status.st_mtime) * 1000000));
}

void cLinuxFileImpl::open(nucs::cString const& path, nio::OpenMode mode, nio::CreateMode create,
                          nio::WriteMode write, bool followLinks)
{
    close();
    nucs::cString name(path);
    auto const encoded = encodedName(name, mCodec, "open");
    int const descriptor =
        movedFromZero(::open(encoded.data(), openFlags(mode, create, write, followLinks), kFileMode));
    if (descriptor < 0)
        throwOSError("open", errno, name);
    miDescriptor = descriptor;
    mbWritable = mode == nio::omWrite || mode == nio::omReadWrite;
    msName.swap(name);
}

void cLinuxFileImpl::close()
{
    bd().touchSize();
    munmap();
    if (miDescriptor != 0)
        closeDescriptor();
    if (mbRemoveOnClose)
        remove();
}

void cLinuxFileImpl::truncate(unsigned int size)
{
    requireOpen("truncate");
    if (::ftruncate(miDescriptor, size) != 0)
        throwOSError("truncate", errno);
    bd().touchSize();
}

unsigned long long cLinuxFileImpl::readBytes(char* target, unsigned long long count)
{
    requireOpen("read");
    return transfer(
        count,
        [&](std::size_t done, std::size_t block) { return ::read(miDescriptor, target + done, block); },
        [&](int code, std::size_t block) { failRead(code, count, block); });
}

unsigned long long cLinuxFileImpl::writeBytes(char const* source, unsigned long long count)
{
    requireOpen("write");
    bd().touchSize();
    return transfer(
        count,
        [&](std::size_t done, std::size_t block) { return ::write(miDescriptor, source + done, block); },
        [](int code, std::size_t) { throwOSError("write", code); });
}

void* cLinuxFileImpl::mmap()
{
    requireOpen("mmap");
    if (mbWritable)
        nstd::raiseRuntime(nstd::makeMessage("$MTR$MMAP not supported in r/w mode!"));
    if (mpMapping != nullptr)
        nstd::raiseRuntime(nstd::makeMessage("$MTR$File is already memory mapped!"));
    auto const size = bd().size(false);
    if (size > 0xFFFFFFFFu)
        throwOSError("mmap", EOVERFLOW);
    void* const address =
        ::mmap(nullptr, static_cast<std::size_t>(size), PROT_READ, MAP_SHARED, miDescriptor, 0);
    if (address == MAP_FAILED)
        throwOSError("mmap", errno);
    mpMapping = address;
    miMappingLength = static_cast<unsigned int>(size);
    return address;
}

unsigned long long cLinuxFileImpl::seek(long long offset, nio::SeekMode mode)
{
    requireOpen("seek");
    bd().touchSize();
    auto const position = ::lseek64(miDescriptor, offset, whenceOf(mode));
    if (position < 0)
        throwOSError("seek", errno);
    return static_cast<unsigned long long>(position);
}

unsigned long long cLinuxFileImpl::pos() const
{
    requireOpen("seek");
    auto const position = ::lseek64(miDescriptor, 0, SEEK_CUR);
    if (position < 0)
        throwOSError("seek", errno);
    return static_cast<unsigned long long>(position);
}

void cLinuxFileImpl::flush()
{
    bd().flush();
    requireOpen("flush");
}

void cLinuxFileImpl::munmap()
{
    if (mpMapping != nullptr)
        ::munmap(mpMapping, miMappingLength);
    mpMapping = nullptr;
    miMappingLength = 0;
}

void cLinuxFileImpl::requireOpen(char const* operation) const
{
    if (miDescriptor == 0)
        throwOSError(operation, kNotOpen);
}

// An interrupted close has closed the descriptor as well: it may be another file's already.
void cLinuxFileImpl::closeDescriptor()
{
    try {
        if (mbWritable)
            flush();
    } catch (...) {
        giveBack();
        throw;
    }
    mbWritable = false;
    if (::close(std::exchange(miDescriptor, 0)) != 0)
        throwOSError("close", errno);
}

void cLinuxFileImpl::giveBack() noexcept
{
    munmap();
    mbWritable = false;
    if (miDescriptor != 0)
        ::close(std::exchange(miDescriptor, 0));
}

void cLinuxFileImpl::failRead(int code, unsigned long long count, unsigned long long block) const
{
    if (code != EINTR) {
        char buffer[128];
        char const* const text = ::strerror_r(code, buffer, sizeof(buffer));
        cDebugEntry(NEL_SOURCE_TAG, kReadErrorLine)
            << "Error in cLinuxFileImpl::readBytes(char* pDst, piUInt64 iMax) " << msName
            << " /Max: " << count << " /Block: " << block << " /R: " << -1 << " / " << text;
    }
    throwOSError("read", code);
}

} // namespace npi
