// Files beside the calls of the system: scanning through a view or a mapping, and copying.

#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>

#include "nel_core/io/cFile.h"
#include "nel_core/std/tConstArrayRef.h"

namespace {

constexpr unsigned int kScanSize = 256u << 20;
constexpr unsigned int kCopySize = 64u << 20;
constexpr unsigned int kPiece = 64u << 10;
constexpr char kWanted = '\xFF'; // the last byte of a file, and no other

void refuseShort(bool isWhole)
{
    if (!isWhole)
        std::abort();
}

// A file of that size with kWanted at its end, which is in the page cache and goes with the object.
class cScratchFile {
public:
    explicit cScratchFile(unsigned int size) : miFd(::mkstemp(msName.data()))
    {
        std::vector<char> piece(kPiece, 'x');
        for (unsigned int done = 0; done < size; done += kPiece) {
            piece.back() = done + kPiece == size ? kWanted : 'x';
            refuseShort(::write(miFd, piece.data(), kPiece) == kPiece);
        }
    }
    cScratchFile(cScratchFile const&) = delete;
    cScratchFile& operator=(cScratchFile const&) = delete;
    ~cScratchFile()
    {
        ::close(miFd);
        ::unlink(msName.c_str());
    }

    int fd() const { return miFd; }
    char const* name() const { return msName.c_str(); }

private:
    std::string msName = "/tmp/fileBenchmarkXXXXXX";
    int miFd;
};

cScratchFile& scanned()
{
    static cScratchFile file(kScanSize);
    return file;
}

cScratchFile& copied()
{
    static cScratchFile file(kCopySize);
    return file;
}

nio::cFile openedToRead(cScratchFile& file)
{
    return nio::cFile(file.name(), nio::omRead, nio::cmMustExist, nio::wmOverwrite);
}

void finish(benchmark::State& state, bool isRight, unsigned int bytes)
{
    if (!isRight)
        state.SkipWithError("wrong result");
    state.SetBytesProcessed(state.iterations() * bytes);
}

bool findWanted(nio::cFile const& file)
{
    bool found = false;
    return nstd::tConstArrayRef<char>(file).find(kWanted, found) == kScanSize - 1 && found;
}

void scanByRead(benchmark::State& state)
{
    std::vector<char> piece(kPiece);
    bool isRight = true;
    for (auto _ : state) {
        ::lseek(scanned().fd(), 0, SEEK_SET);
        unsigned int done = 0;
        void const* hit = nullptr;
        while (!hit && ::read(scanned().fd(), piece.data(), kPiece) == kPiece) {
            hit = std::memchr(piece.data(), kWanted, kPiece);
            done += kPiece;
        }
        isRight = isRight && hit && done == kScanSize;
    }
    finish(state, isRight, kScanSize);
}
BENCHMARK(scanByRead);

void scanByView(benchmark::State& state)
{
    auto const file = openedToRead(scanned());
    bool isRight = true;
    for (auto _ : state)
        isRight = findWanted(file) && isRight;
    finish(state, isRight, kScanSize);
}
BENCHMARK(scanByView);

void scanMappingByMemchr(benchmark::State& state)
{
    bool isRight = true;
    void* const mapping = ::mmap(nullptr, kScanSize, PROT_READ, MAP_SHARED, scanned().fd(), 0);
    for (auto _ : state) {
        auto const* bytes = static_cast<char const*>(mapping);
        benchmark::DoNotOptimize(bytes);
        benchmark::ClobberMemory();
        isRight = std::memchr(bytes, kWanted, kScanSize) == bytes + kScanSize - 1 && isRight;
    }
    ::munmap(mapping, kScanSize);
    finish(state, isRight, kScanSize);
}
BENCHMARK(scanMappingByMemchr);

void scanMappingByView(benchmark::State& state)
{
    auto file = openedToRead(scanned());
    file.mmap();
    bool isRight = true;
    for (auto _ : state)
        isRight = findWanted(file) && isRight;
    finish(state, isRight, kScanSize);
}
BENCHMARK(scanMappingByView);

void copyByRead(benchmark::State& state)
{
    std::string const target = std::string(copied().name()) + ".copy";
    std::vector<char> piece(kPiece);
    unsigned long long moved = 0;
    for (auto _ : state) {
        int const from = ::open(copied().name(), O_RDONLY | O_CLOEXEC);
        int const to = ::open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
        for (ssize_t count; (count = ::read(from, piece.data(), kPiece)) > 0;)
            moved +=
                static_cast<unsigned long long>(::write(to, piece.data(), static_cast<std::size_t>(count)));
        ::close(from);
        ::close(to);
    }
    ::unlink(target.c_str());
    finish(state, moved == static_cast<unsigned long long>(state.iterations()) * kCopySize, kCopySize);
}
BENCHMARK(copyByRead);

void copyByFile(benchmark::State& state)
{
    std::string const target = std::string(copied().name()) + ".copy";
    std::vector<char> piece(kPiece);
    unsigned long long moved = 0;
    for (auto _ : state) {
        auto from = openedToRead(copied());
        nio::cFile to(target.c_str(), nio::omWrite, nio::cmCreate, nio::wmTruncate);
        while (auto const count = from.read(piece.data(), kPiece))
            moved += to.write(piece.data(), count);
        to.close();
    }
    ::unlink(target.c_str());
    finish(state, moved == static_cast<unsigned long long>(state.iterations()) * kCopySize, kCopySize);
}
BENCHMARK(copyByFile);

} // namespace
