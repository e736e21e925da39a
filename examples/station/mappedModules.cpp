#include "mappedModules.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "nel_core/std/cOSErrorException.h"

namespace {

constexpr char kMaps[] = "/proc/self/maps";
constexpr char kPrefix[] = "libstation_";

// The file name in a line if it is that of a module, which may have more than one mapping in a row.
void add(nstd::tVector<nstd::cAsciiString>& names, char* line)
{
    char const* const slash = std::strrchr(line, '/');
    if (!slash || std::strncmp(slash + 1, kPrefix, sizeof(kPrefix) - 1) != 0)
        return;
    line[std::strcspn(line, "\n")] = 0;
    nstd::cAsciiString const name(slash + 1);
    if (names.empty() || names[names.size() - 1] != name)
        names.append(name);
}

} // namespace

nstd::tVector<nstd::cAsciiString> mappedModules()
{
    nstd::tVector<nstd::cAsciiString> names;
    std::FILE* const file = std::fopen(kMaps, "re");
    if (!file)
        throw nstd::cOSErrorException("fopen", errno);
    char* line = nullptr;
    std::size_t size = 0;
    while (::getline(&line, &size, file) != -1)
        add(names, line);
    std::free(line);
    std::fclose(file);
    return names;
}
