#include "nel_core/pi/cDebugStdErr.h"

#include <cstring>
#include <new>
#include <string_view>

#include "nel_core/pi/cPlatform.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxStdErr.h"
#include "nel_core/std/cNumberConversionFormat.h"

namespace npi {
namespace {

char const* nameIn(char const* path)
{
    char const* name = path;
    for (; *path; ++path) {
        if (std::strchr("/\\:", *path))
            name = path + 1;
    }
    return name;
}

void addPosition(nstd::cAsciiString& out, char const* path, unsigned int line)
{
    nstd::cNumberConversionFormat const decimal(10);
    out += nameIn(path);
    out += ":";
    out.addUNum32(line, decimal);
    out += ": ";
}

} // namespace

cDebugStdErr::cDebugStdErr() : cDebugStdErr(cPlatform::tryGetEnv("PIDBG_FILTER")) { }

cDebugStdErr::cDebugStdErr(char const* words)
{
    if (words)
        addFilterWords(words);
}

cDebugStdErr::~cDebugStdErr() = default;

void cDebugStdErr::addFilterWords(char const* words)
{
    while (*words) {
        auto const length = static_cast<unsigned int>(std::strcspn(words, " "));
        if (length > 0)
            maFilter.append(nstd::cAsciiString(std::string_view(words, length)));
        words += length;
        words += std::strspn(words, " ");
    }
}

void cDebugStdErr::printChar(char c)
{
    if (linked()) {
        linked()->printChar(c);
        return;
    }
    try {
        if (c == '\n')
            endLine();
        else
            msLine += c;
    } catch (std::bad_alloc const&) {
        return; // a gap in the line is better than a failure that hides the one being told of
    }
}

void cDebugStdErr::flush()
{
    if (linked()) {
        linked()->flush();
        return;
    }
    cLinuxStdErr::write(msLine.c_str(), msLine.length());
    msLine.truncate(0);
}

bool cDebugStdErr::isFiltered() const
{
    for (unsigned int i = 0; debugFileName() && i < maFilter.size(); ++i) {
        if (std::strstr(debugFileName(), maFilter[i].c_str()))
            return true;
    }
    return false;
}

void cDebugStdErr::endLine()
{
    try {
        if (!isFiltered())
            writeLine();
    } catch (std::bad_alloc const&) {
        cLinuxStdErr::write(msLine.c_str(), msLine.length());
        cLinuxStdErr::write("\n", 1);
    }
    msLine.truncate(0);
}

void cDebugStdErr::writeLine() const
{
    nstd::cAsciiString line;
    if (debugFileName())
        addPosition(line, debugFileName(), debugFileLine());
    for (unsigned int level = 0; level < indentionLevel(); ++level)
        line += "  ";
    line += msLine;
    line += "\n";
    cLinuxStdErr::write(line.c_str(), line.length());
}

} // namespace npi
