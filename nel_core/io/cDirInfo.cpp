#include "nel_core/io/cDirInfo.h"

#include "nel_core/pi/cSystem.h"

namespace nio {

cDirInfo::cDirInfo() : mpFs(&npi::system().fs) { }

cDirInfo::cDirInfo(cFs const& fs) : mpFs(&fs) { }

cDirInfo::cDirInfo(nucs::cString const& path, StackedFsPath stacked)
    : mpFs(&npi::system().fs),
      msPath(path),
      mbStacked(stacked != sfpPlain)
{
}

void cDirInfo::appendPath(char const* text)
{
    msPath.appendC(text);
}

void cDirInfo::appendPath(nucs::cString const& text)
{
    msPath.addString(text);
}

void cDirInfo::clear()
{
    msPath.truncate(0);
    mbStacked = false;
}

bool cDirInfo::operator==(cDirInfo const& other) const
{
    return mpFs == other.mpFs && msPath == other.msPath;
}

} // namespace nio
