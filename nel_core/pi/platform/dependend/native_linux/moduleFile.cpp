#include "nel_core/pi/platform/dependend/native_linux/moduleFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

#include "nel_core/pi/cPlatform.h"
#include "nel_core/std/piTypes.h"

namespace npi {
namespace {

using tHeader = ElfW(Ehdr);
using tSegment = ElfW(Phdr);
using tSection = ElfW(Shdr);

constexpr unsigned char kClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
constexpr unsigned int kMachine = sizeof(void*) == 8 ? EM_X86_64 : EM_386;

constexpr char const* kUnreadable = "the file cannot be read";
constexpr char const* kCut = "the file is shorter than it says";
constexpr char const* kDamaged = "a damaged table of segments";

constexpr unsigned int kSegmentsMax = 64;       // the linker keeps the table on the stack; a dozen are usual
constexpr piUInt64 kMemoryMax = 1024 * 1048576; // bytes from the first segment to the end of the last one
constexpr piUInt64 kPageSize = 4096;

/// A file that is open for reading.
class cOpenFile {
public:
    // Opening a fifo does not wait.
    explicit cOpenFile(char const* path) noexcept
        : miDescriptor(::open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC))
    {
    }
    cOpenFile(cOpenFile const&) = delete;
    cOpenFile& operator=(cOpenFile const&) = delete;
    ~cOpenFile()
    {
        if (isOpen())
            ::close(miDescriptor);
    }

    bool isOpen() const noexcept { return miDescriptor >= 0; }
    /// Gives 0, or -1 with errno.
    int readStatus() noexcept
    {
        struct stat status = {};
        if (::fstat(miDescriptor, &status) != 0)
            return -1;
        mbRegular = S_ISREG(status.st_mode);
        miSize = static_cast<piUInt64>(status.st_size);
        return 0;
    }
    bool isRegular() const noexcept { return mbRegular; }
    bool contains(piUInt64 offset, piUInt64 size) const noexcept
    {
        return offset <= miSize && size <= miSize - offset;
    }
    /// Whether all `size` bytes at `offset` could be read.
    bool read(void* target, piUInt64 offset, std::size_t size) const noexcept
    {
        auto* to = static_cast<char*>(target);
        while (size > 0) {
            auto const got = ::pread(miDescriptor, to, size, static_cast<off_t>(offset));
            if (got < 0 && errno == EINTR)
                continue;
            if (got <= 0)
                return false;
            to += got;
            offset += static_cast<piUInt64>(got);
            size -= static_cast<std::size_t>(got);
        }
        return true;
    }

private:
    int miDescriptor;
    bool mbRegular = false;
    piUInt64 miSize = 0; ///< in bytes
};

// Each problem is what is wrong, null for nothing.

char const* problemOf(tHeader const& header)
{
    if (std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0)
        return "not an ELF file";
    if (header.e_ident[EI_CLASS] != kClass || header.e_ident[EI_DATA] != ELFDATA2LSB
        || header.e_machine != kMachine)
        return "made for another kind of processor";
    if (header.e_ident[EI_VERSION] != EV_CURRENT || header.e_version != EV_CURRENT)
        return "an unknown version of ELF";
    if (header.e_type != ET_DYN)
        return "not a shared object";
    if (header.e_phnum == 0 || header.e_phnum > kSegmentsMax || header.e_phentsize != sizeof(tSegment))
        return kDamaged;
    if (header.e_shoff != 0 && header.e_shentsize != sizeof(tSection))
        return "a damaged table of sections";
    return nullptr;
}

// The section table is mostly the last part of a file, so it tells best whether something is missing.
bool containsTables(cOpenFile const& file, tHeader const& header)
{
    piUInt64 const sections = header.e_shnum > 0 ? header.e_shnum : 1; // without a number, the first has it
    return file.contains(header.e_phoff, header.e_phnum * sizeof(tSegment))
           && (header.e_shoff == 0 || file.contains(header.e_shoff, sections * sizeof(tSection)));
}

/// The table of segments. It is checked as far as the dynamic linker dies of what is wrong there.
class cSegments {
public:
    bool read(cOpenFile const& file, tHeader const& header) noexcept
    {
        miCount = header.e_phnum;
        return file.read(maTable, header.e_phoff, miCount * sizeof(tSegment));
    }
    char const* problem(cOpenFile const& file) const noexcept;

private:
    tSegment const* begin() const noexcept { return maTable; }
    tSegment const* end() const noexcept { return maTable + miCount; }

    bool areOrdered() const noexcept;
    bool isLoaded(tSegment const& part) const noexcept;

    tSegment maTable[kSegmentsMax];
    unsigned int miCount = 0;
};

bool isSound(tSegment const& segment) noexcept
{
    return segment.p_filesz <= segment.p_memsz && segment.p_memsz <= kMemoryMax
           && segment.p_memsz <= ~ElfW(Addr)(0) - segment.p_vaddr && segment.p_align <= kMemoryMax
           && (segment.p_align & (segment.p_align - 1)) == 0;
}

// How much of the memory is used in place; what a thread gets zeroed has no place.
piUInt64 sizeOf(tSegment const& part) noexcept
{
    return part.p_type == PT_TLS ? part.p_filesz : part.p_memsz;
}

// What the linker, or an exception that is raised, looks at where the segments to load have put it.
bool isPart(tSegment const& segment) noexcept
{
    switch (segment.p_type) {
    case PT_DYNAMIC:
    case PT_INTERP:
    case PT_NOTE:
    case PT_PHDR:
    case PT_TLS:
    case PT_GNU_EH_FRAME:
    case PT_GNU_RELRO: return sizeOf(segment) > 0;
    default: return false;
    }
}

// The linker writes to a dynamic section that says so, and to what it protects afterwards.
unsigned int neededAccess(tSegment const& part) noexcept
{
    if (part.p_type == PT_GNU_RELRO)
        return PF_R | PF_W;
    return PF_R | (part.p_type == PT_DYNAMIC ? part.p_flags & PF_W : 0);
}

piUInt64 memoryEnd(tSegment const& segment) noexcept
{
    return static_cast<piUInt64>(segment.p_vaddr) + segment.p_memsz;
}

piUInt64 fileEnd(tSegment const& segment) noexcept
{
    return static_cast<piUInt64>(segment.p_offset) + segment.p_filesz;
}

// The memory of what is loaded reaches to the end of the page. Some static linkers count zeroed memory into
// what PT_GNU_RELRO has in the file.
bool contains(tSegment const& loaded, tSegment const& part) noexcept
{
    auto const last = memoryEnd(loaded) + kPageSize - 1;
    return part.p_vaddr >= loaded.p_vaddr && part.p_vaddr + sizeOf(part) <= last - last % kPageSize
           && part.p_vaddr - loaded.p_vaddr == part.p_offset - loaded.p_offset
           && (part.p_type == PT_GNU_RELRO || fileEnd(part) <= fileEnd(loaded));
}

// Only writable memory can be longer than what the file has for it.
bool isLoadable(tSegment const& segment) noexcept
{
    return (segment.p_flags & PF_R) != 0 && (segment.p_vaddr - segment.p_offset) % kPageSize == 0
           && ((segment.p_flags & PF_W) != 0 || segment.p_filesz == segment.p_memsz);
}

// Whether the segments to load follow each other, in the memory and in the file.
bool cSegments::areOrdered() const noexcept
{
    tSegment const* first = nullptr;
    tSegment const* last = nullptr;
    bool isExecutable = false;
    for (auto const& segment : *this) {
        if (segment.p_type != PT_LOAD)
            continue;
        if (!isLoadable(segment)
            || (last && (segment.p_vaddr < memoryEnd(*last) || segment.p_offset < fileEnd(*last))))
            return false;
        first = first ? first : &segment;
        last = &segment;
        isExecutable = isExecutable || (segment.p_flags & PF_X) != 0;
    }
    return isExecutable && memoryEnd(*last) - first->p_vaddr <= kMemoryMax;
}

bool cSegments::isLoaded(tSegment const& part) const noexcept
{
    auto const needed = neededAccess(part);
    for (auto const& segment : *this) {
        if (segment.p_type == PT_LOAD && (segment.p_flags & needed) == needed && contains(segment, part))
            return true;
    }
    return false;
}

char const* cSegments::problem(cOpenFile const& file) const noexcept
{
    unsigned int dynamic = 0;
    for (auto const& segment : *this) {
        if (segment.p_type == PT_NULL)
            continue;
        if (!file.contains(segment.p_offset, segment.p_filesz))
            return kCut;
        if (!isSound(segment) || (isPart(segment) && !isLoaded(segment)))
            return kDamaged;
        dynamic += segment.p_type == PT_DYNAMIC && segment.p_filesz > 0;
    }
    return dynamic == 1 && areOrdered() ? nullptr : kDamaged;
}

char const* problemOf(cOpenFile const& file)
{
    tHeader header;
    if (!file.contains(0, sizeof(header)))
        return "too short for an ELF file";
    if (!file.read(&header, 0, sizeof(header)))
        return kUnreadable;
    if (auto const* const problem = problemOf(header))
        return problem;
    if (!containsTables(file, header))
        return kCut;
    cSegments segments;
    return segments.read(file, header) ? segments.problem(file) : kUnreadable;
}

} // namespace

nstd::cAsciiString moduleFileProblem(char const* path)
{
    cOpenFile file(path);
    if (!file.isOpen() || file.readStatus() != 0)
        return cPlatform::osFileIOErrorString(errno);
    return nstd::cAsciiString(file.isRegular() ? problemOf(file) : "not a regular file");
}

} // namespace npi
