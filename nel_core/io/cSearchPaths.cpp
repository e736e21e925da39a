#include "nel_core/io/cSearchPaths.h"

#include <utility>

#include "nel_core/io/cFileInfo.h"
#include "nel_core/io/cFs.h"
#include "nel_core/io/cPath.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cOSErrorException.h"

namespace nio {
namespace {

constexpr unsigned int kGrowStep = 10;

bool contains(nstd::tVector<nucs::cString> const& texts, nucs::cString const& text)
{
    for (auto const& known : texts)
        if (known == text)
            return true;
    return false;
}

bool isOfType(cFileInfo const& info, cSearchPaths::Type type)
{
    switch (type) {
    case cSearchPaths::stFile: return info.isFile();
    case cSearchPaths::stDirectory: return info.isDir();
    case cSearchPaths::stFileOrDirectory: return info.isFile() || info.isDir();
    }
    return false;
}

} // namespace

cSearchPaths::cSearchPaths() : cSearchPaths(npi::system().fs) { }

cSearchPaths::cSearchPaths(cFs const& fs) : mpFs(&fs)
{
    maDirectories.setNumElementsAhead(kGrowStep);
}

cSearchPaths::cSearchPaths(cSearchPaths const& other) = default;

cSearchPaths& cSearchPaths::operator=(cSearchPaths const& other)
{
    cSearchPaths(other).swap(*this);
    return *this;
}

cSearchPaths::~cSearchPaths() = default;

void cSearchPaths::swap(cSearchPaths& other) noexcept
{
    std::swap(mpFs, other.mpFs);
    maDirectories.swap(other.maDirectories);
}

bool cSearchPaths::addPath(nucs::cString const& directory)
{
    if (contains(maDirectories, directory))
        return false;
    maDirectories.append(directory);
    return true;
}

void cSearchPaths::add(cSearchPaths const& other)
{
    cSearchPaths sum(*this);
    for (auto const& directory : other.maDirectories)
        sum.addPath(directory);
    maDirectories.swap(sum.maDirectories);
}

void cSearchPaths::removePath(nucs::cString const& directory)
{
    nucs::cString const removed(directory); // it may be one of ours
    for (unsigned int i = size(); i-- != 0;)
        if (maDirectories[i] == removed)
            maDirectories.remove(i);
}

void cSearchPaths::clear()
{
    maDirectories.clear();
}

bool cSearchPaths::exists(nucs::cString const& path, Type type) const
{
    cFileInfo const info(path, *mpFs);
    try {
        return info.exists() && isOfType(info, type);
    } catch (nstd::cOSErrorException const&) {
        return false; // it has gone meanwhile
    }
}

void cSearchPaths::tryFindFile(nucs::cString const& name, nucs::cString& result, Type type) const
{
    nucs::cString found(tryFindFile(name, type));
    result.swap(found);
}

nucs::cString cSearchPaths::tryFindFile(nucs::cString const& name, Type type) const
{
    for (auto const& directory : maDirectories) {
        nucs::cString path(directory);
        cFileInfo::setFileName(path, name, true);
        if (exists(path, type))
            return path;
    }
    return nucs::cString();
}

void cSearchPaths::candidates(nucs::cString const& name, nstd::tVector<nucs::cString>& out) const
{
    collect(name, out, [](nucs::cString const&) { return true; });
}

void cSearchPaths::existingCandidates(nucs::cString const& name, nstd::tVector<nucs::cString>& out,
                                      Type type) const
{
    collect(name, out, [this, type](nucs::cString const& candidate) { return exists(candidate, type); });
}

template<typename Accepts>
void cSearchPaths::collect(nucs::cString const& name, nstd::tVector<nucs::cString>& out,
                           Accepts const& accepts) const
{
    nstd::tVector<nucs::cString> found;
    nucs::cString const directoryPart(cFileInfo(name, *mpFs).path());
    if (cPath::isAbsolute(directoryPart)) {
        found.append(name);
        out.swap(found);
        return;
    }

    cPath const below(directoryPart);
    nucs::cString candidate(name);
    for (auto const& directory : maDirectories) {
        cPath place(directory);
        place.cd(below);
        place.fixup();
        cFileInfo::setFilePath(candidate, place.path());
        if (accepts(candidate) && !contains(found, candidate))
            found.append(candidate);
    }
    out.swap(found);
}

} // namespace nio
