#include "nel_core/io/cFileInfo.h"

#include <string_view>

#include "nel_core/io/cAbstractFileInfoImpl.h"
#include "nel_core/io/cFs.h"
#include "nel_core/io/cPath.h"
#include "nel_core/io/cPermissions.h"
#include "nel_core/io/fileName.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cDateTime.h"

namespace nio {
namespace {

std::u32string_view nameOf(nucs::cString const& path)
{
    return std::u32string_view(path).substr(cPath::pathComponentLength(path));
}

// Where the name has its first ".", counted from the start of the path; the end of the path without one.
unsigned int dotOf(nucs::cString const& path)
{
    auto const name = nameOf(path);
    auto const dot = name.find(U'.');
    auto const behind = dot == std::u32string_view::npos ? 0 : name.size() - dot;
    return path.length() - static_cast<unsigned int>(behind);
}

} // namespace

cFileInfo::cFileInfo(nucs::cString const& path, cFs const& fs)
    : mpFs(&fs),
      mpImpl(fs.createFileInfoImpl(path))
{
}

cFileInfo::cFileInfo(nucs::cString const& path) : cFileInfo(path, npi::system().fs) { }

cFileInfo::cFileInfo(nstd::cAsciiString const& path) : cFileInfo(decodedPath(path, npi::system().fs.endec()))
{
}

cFileInfo::cFileInfo(char const* path) : cFileInfo(nstd::cAsciiString(path)) { }

bool cFileInfo::exists(bool follow, nstd::cDateTime* stamp, cFileInfoFlags::TimeStamp which) const
{
    return mpFs->exists(fullPath(), follow, stamp, which);
}

cFileInfoFlags::FileType cFileInfo::type(bool follow) const
{
    return mpImpl->type(follow);
}

bool cFileInfo::isDir(bool follow) const
{
    return type(follow) == cFileInfoFlags::ftDir;
}

bool cFileInfo::isFile(bool follow) const
{
    return type(follow) == cFileInfoFlags::ftFile;
}

bool cFileInfo::isSymLink() const
{
    return type(false) == cFileInfoFlags::ftSymLink;
}

bool cFileInfo::isDeadSymLink() const
{
    return exists(false) && !exists(true);
}

unsigned long long cFileInfo::size(bool follow) const
{
    return mpImpl->size(follow);
}

nstd::cDateTime cFileInfo::timeStamp(cFileInfoFlags::TimeStamp which, bool follow) const
{
    return mpImpl->timeStamp(which, follow);
}

cPermissions cFileInfo::permissions(bool follow) const
{
    return mpImpl->readPermissions(follow);
}

bool cFileInfo::isHidden() const
{
    return (permissions(true).permissions() & cPermissions::pmHidden) != 0;
}

nucs::cString cFileInfo::readLink() const
{
    return mpImpl->readLink();
}

nucs::cString const& cFileInfo::fullPath() const
{
    return mpImpl->filePath();
}

nucs::cString cFileInfo::pathComponent() const
{
    nucs::cString component;
    cPath::storePathComponent(fullPath(), component);
    return component;
}

cPath cFileInfo::toPath() const
{
    return cPath(pathComponent());
}

nucs::cString cFileInfo::fullAbsolutePath() const
{
    cPath directory(toPath());
    directory.makeAbsolute(mpFs->cwd());
    return directory.path() + fileName();
}

nucs::cString cFileInfo::fullRelativePath(cPath const& base) const
{
    cPath directory(toPath());
    directory.makeRelative(base);
    return directory.path() + fileName();
}

nucs::cString cFileInfo::fileName() const
{
    return nucs::cString(nameOf(fullPath()));
}

nucs::cString cFileInfo::fileBaseName() const
{
    auto const name = nameOf(fullPath());
    return nucs::cString(name.substr(0, name.find(U'.')));
}

nucs::cString cFileInfo::fileExtension() const
{
    return nucs::cString(std::u32string_view(fullPath()).substr(dotOf(fullPath())));
}

void cFileInfo::setFileName(nucs::cString& path, nucs::cString name, bool asDirectory)
{
    nucs::cString edited(path);
    if (!asDirectory)
        edited.truncate(cPath::pathComponentLength(edited));
    endWithSeparator(edited);
    edited.addString(name);
    path.swap(edited);
}

void cFileInfo::setFilePath(nucs::cString& path, nucs::cString const& directory)
{
    nucs::cString edited(directory);
    endWithSeparator(edited);
    edited.addString(nucs::cString(nameOf(path)));
    path.swap(edited);
}

void cFileInfo::setFileNamePrefix(nucs::cString& path, nucs::cString const& prefix)
{
    auto const name = nameOf(path);
    if (name.substr(0, prefix.length()) != std::u32string_view(prefix))
        path.insert(path.length() - static_cast<unsigned int>(name.size()), prefix.data(), prefix.length());
}

void cFileInfo::setFileNameSuffix(nucs::cString& path, nucs::cString const& suffix)
{
    auto const dot = dotOf(path);
    auto const length = suffix.length();
    if (length != 0 && (dot < length || !path.isEqual(suffix.data(), dot - length, length)))
        path.insert(dot, suffix.data(), length);
}

void cFileInfo::setFileNameExtension(nucs::cString& path, nucs::cString const& extension)
{
    nucs::cString edited(std::u32string_view(path).substr(0, dotOf(path)));
    edited.addString(extension);
    path.swap(edited);
}

} // namespace nio
