// Directories beside the system's own calls.

#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <string>

#include <benchmark/benchmark.h>

#include "nel_core/io/cDir.h"
#include "nel_core/io/cFile.h"
#include "nel_core/io/cFs.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cAbstractEnDec.h"
#include "nel_core/ucs/cString.h"

namespace {

constexpr unsigned int kEntries = 10000;

// A directory of empty files, which goes with the program.
class cFullDirectory {
public:
    cFullDirectory()
    {
        if (!::mkdtemp(msPath.data()))
            std::abort();
        msPath += '/';
        for (unsigned int i = 0; i < kEntries; ++i) {
            auto const name = msPath + "entry number " + std::to_string(i) + ".txt";
            npi::system().fs.openFile(nucs::cString(name.c_str()), nio::omWrite, nio::cmCreate,
                                      nio::wmTruncate);
        }
    }
    ~cFullDirectory() { npi::system().fs.removeRecursive(nucs::cString(msPath.c_str()), false); }

    std::string const& path() const { return msPath; }

private:
    std::string msPath = "/tmp/nel_benchmark_XXXXXX";
};

std::string const& directory()
{
    static cFullDirectory const full;
    return full.path();
}

void check(benchmark::State& state, unsigned int entries)
{
    if (entries != kEntries)
        state.SkipWithError("the directory has another number of entries");
}

// Every name is decoded into a string of its own.
void readDirectory(benchmark::State& state)
{
    auto const& path = directory();
    auto const& codec = npi::system().fs.endec();
    for (auto _ : state) {
        unsigned int entries = 0;
        DIR* const stream = ::opendir(path.c_str());
        while (dirent const* const entry = ::readdir(stream)) {
            if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0)
                continue;
            nstd::tArray<char> const bytes(entry->d_name);
            nucs::cString name;
            codec.decode(nstd::tConstArrayRef<char>(bytes), name);
            benchmark::DoNotOptimize(name);
            ++entries;
        }
        ::closedir(stream);
        check(state, entries);
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(readDirectory)->Unit(benchmark::kMillisecond);

void listDirectory(benchmark::State& state)
{
    nucs::cString const path(directory().c_str());
    for (auto _ : state) {
        unsigned int entries = 0;
        for (auto const& entry :
             npi::system().fs.openDir(path, nio::cDir::dfSkipDot | nio::cDir::dfSkipDotDot)) {
            benchmark::DoNotOptimize(entry.fullPath());
            ++entries;
        }
        check(state, entries);
    }
    state.SetItemsProcessed(state.iterations() * kEntries);
}
BENCHMARK(listDirectory)->Unit(benchmark::kMillisecond);

} // namespace
