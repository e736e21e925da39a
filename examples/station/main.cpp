#include <cstdio>
#include <cstring>
#include <new>

#include "cStation.h"
#include "mappedModules.h"
#include "nel_core/io/cFs.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"

namespace {

constexpr char kUsage[] = "usage: station [DIRECTORY [FILE]]\n"
                          "Loads the modules in DIRECTORY; one of them reads numbers from FILE.\n"
                          "  --help  show this text\n";

nucs::cString decoded(char const* name)
{
    nucs::cString text;
    npi::system().fs.endec().decode(nstd::tArray<char>(name), text);
    return text;
}

// The exception with everything that led to it, a line each.
void report(nstd::cAbstractException const& error)
{
    using nstd::cAbstractException;
    nucs::cString text;
    error.createMessage(text, "\n", cAbstractException::mfHistory | cAbstractException::mfIndent, nullptr);
    std::fprintf(stderr, "station: %s\n", text.ascii().c_str());
}

// Whether there are `expected` modules in the process.
bool showMappedModules(unsigned int expected)
{
    auto const names = mappedModules();
    if (names.empty())
        std::puts("mapped: no module is left");
    for (auto const& name : names)
        std::printf("mapped: %s\n", name.c_str());
    return names.size() == expected;
}

bool run(char const* directory, char const* file)
{
    cStation station(decoded(directory), decoded(file));
    bool const isLoaded = showMappedModules(4);
    station.run();
    station.unload();
    return showMappedModules(0) && isLoaded;
}

bool runSafely(char const* directory, char const* file)
{
    try {
        npi::system();
        bool const isGood = run(directory, file);
        npi::cSystem::cleanup();
        return isGood && std::fflush(stdout) == 0;
    } catch (nstd::cAbstractException const& error) {
        report(error);
    } catch (std::bad_alloc const&) {
        std::fputs("station: out of memory\n", stderr);
    }
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    bool const isHelp = argc == 2 && std::strcmp(argv[1], "--help") == 0;
    if (isHelp || argc > 3) {
        std::fputs(kUsage, isHelp ? stdout : stderr);
        return isHelp ? 0 : 2;
    }
    char const* const directory = argc > 1 ? argv[1] : NEL_STATION_MODULES;
    char const* const file = argc > 2 ? argv[2] : NEL_EXAMPLE_DIR "/temperatures.txt";
    return runSafely(directory, file) ? 0 : 1;
}
