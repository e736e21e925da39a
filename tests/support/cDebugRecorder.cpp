#include "tests/support/cDebugRecorder.h"

#include <algorithm>

#include "nel_core/pi/cSystem.h"

namespace ntest {

cDebugRecorder::cDebugRecorder()
{
    npi::system().debug.link(this);
}

cDebugRecorder::~cDebugRecorder()
{
    npi::system().debug.link(nullptr);
}

void cDebugRecorder::printChar(char c)
{
    if (c != '\n') {
        if (c != '\r')
            msLine += c;
        return;
    }
    maLines.push_back(msLine);
    maFiles.push_back(debugFileName() ? debugFileName() : "");
    msLine.clear();
}

std::string cDebugRecorder::text() const
{
    std::string all;
    for (auto const& line : maLines)
        all += line + '\n';
    return all;
}

unsigned int cDebugRecorder::count(std::string const& part) const
{
    return static_cast<unsigned int>(
        std::count_if(maLines.begin(), maLines.end(),
                      [&](std::string const& line) { return line.find(part) != std::string::npos; }));
}

void cDebugRecorder::clear()
{
    msLine.clear();
    maLines.clear();
    maFiles.clear();
}

} // namespace ntest
