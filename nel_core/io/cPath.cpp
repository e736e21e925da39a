#include "nel_core/io/cPath.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "nel_core/io/cFileInfo.h"
#include "nel_core/io/cFs.h"
#include "nel_core/io/fileName.h"
#include "nel_core/pi/cPlatform.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cSystemState.h"
#include "nel_core/std/tHash.h"

namespace nio {
namespace {

constexpr unsigned int kCachedPaths = 16384;

constexpr bool isSeparator(unsigned int codePoint)
{
    return codePoint == '/' || codePoint == '\\';
}

bool startsWithDrive(unsigned int const* path, unsigned int length)
{
    if (length < 2 || path[1] != ':')
        return false;
    unsigned int const letter = nucs::cString::upperCase(path[0]);
    return letter >= 'A' && letter <= 'Z';
}

bool startsAtRoot(nucs::cString const& path)
{
    return !path.empty() && path[0] == '/';
}

// Steps behind the next "/" from `position` on; false when there is none.
bool passSlash(nucs::cString const& path, unsigned int& position)
{
    bool found = false;
    unsigned int const slash = path.find('/', found, position);
    position = found ? slash + 1 : position;
    return found;
}

// Normalises a path in place, component by component: what is written never gets ahead of what is read.
class cNormaliser {
public:
    explicit cNormaliser(nucs::cString& path)
        : mPath(path),
          mpText(path.data(true)),
          miLength(path.length()),
          mbRelative(isRelative(path))
    {
    }

    // Tells whether the result begins with "..".
    bool run()
    {
        while (miRead < miLength && passComponent()) { }
        mPath.truncate(miWritten);
        if (miWritten == 0)
            mPath.appendC("./");
        return mbAboveStart;
    }

private:
    // Goes on behind the next separator; false when the rest has no meaning.
    bool passComponent()
    {
        unsigned int const begin = miRead;
        miRead =
            static_cast<unsigned int>(std::find_if(mpText + begin, mpText + miLength, isSeparator) - mpText);
        unsigned int const count = miRead - begin;
        miRead += miRead < miLength ? 1 : 0;

        bool const isDot = count != 0 && mpText[begin] == '.' && mpText[miRead - 1] == '/';
        if (isDot && count == 2 && mpText[begin + 1] == '.')
            return climb();
        bool const isDropped = isDot && count == 1 ? begin != 0 : count == 0 && isRepeated(begin);
        if (!isDropped)
            take(begin, miRead);
        return true;
    }

    // Whether the separator at `index`, which has no name in front, is a "/" more than needed. Where a
    // relative path has come back to its start, a "/" would make it absolute.
    bool isRepeated(unsigned int index) const
    {
        return mpText[index] == '/' && (miWritten != 0 ? mpText[miWritten - 1] == '/' : mbRelative);
    }

    // A name that comes to the front of a relative path does not become its drive: "./" keeps the place.
    void take(unsigned int begin, unsigned int end)
    {
        if (mbRelative && miWritten == 0 && begin >= 2 && startsWithDrive(mpText + begin, end - begin)) {
            mpText[miWritten++] = '.';
            mpText[miWritten++] = '/';
        }
        if (begin != miWritten)
            std::copy(mpText + begin, mpText + end, mpText + miWritten);
        miWritten += end - begin;
    }

    // Leaves the last component; false above the root.
    bool climb()
    {
        unsigned int const last = lastComponent();
        if (last != 0) {
            if (mbAboveStart && isParent(last))
                addParent();
            else
                miWritten = last;
            return true;
        }
        if (!mbRelative)
            return false;
        bool const isDot = miWritten == 2 && mpText[0] == '.' && mpText[1] == '/';
        bool const staysAbove = miWritten == 0 || isDot || isParent(0);
        if (isDot || !staysAbove)
            miWritten = 0;
        if (staysAbove)
            addParent();
        return true;
    }

    // Where the last of several components begins, 0 when there is one at most.
    unsigned int lastComponent() const
    {
        unsigned int begin = miWritten == 0 ? 0 : miWritten - 1;
        while (begin != 0 && !isSeparator(mpText[begin - 1]))
            --begin;
        return begin;
    }

    bool isParent(unsigned int begin) const
    {
        return miWritten - begin == 3 && mpText[begin] == '.' && mpText[begin + 1] == '.'
               && mpText[begin + 2] == '/';
    }

    void addParent()
    {
        mpText[miWritten++] = '.';
        mpText[miWritten++] = '.';
        mpText[miWritten++] = '/';
        mbAboveStart = true;
    }

    nucs::cString& mPath;
    unsigned int* mpText; ///< null for an empty path
    unsigned int miLength;
    unsigned int miRead = 0;
    unsigned int miWritten = 0;
    bool mbRelative;
    bool mbAboveStart = false;
};

// The system's cache; null when it has none, and while there is no system, which a path is no reason to
// build.
tPathHash* hasCache()
{
    if (npi::systemState() != npi::SystemState::alive)
        return nullptr;
    return npi::system().caches.hasPathFixupHash();
}

void remember(tPathHash& cache, nucs::cString const& path, nucs::cString normalised)
{
    if (cache.size() >= kCachedPaths)
        cache.clear();
    cache[path].swap(normalised);
}

nucs::cString normalised(nucs::cString path)
{
    bool aboveStart = false;
    fixupPath(path, aboveStart);
    return path;
}

cFs& fileSystem(cFs* fs)
{
    return fs ? *fs : npi::system().fs;
}

} // namespace

char driveLetter(nucs::cString const& path)
{
    if (!startsWithDrive(path.data(true), path.length()))
        return 0;
    return static_cast<char>(nucs::cString::upperCase(path[0]));
}

bool isRelative(nucs::cString const& path)
{
    return !startsAtRoot(path) && driveLetter(path) == 0;
}

char setPath(nucs::cString const& in, nucs::cString& out, bool fixup, tPathHash*)
{
    if (in.empty())
        return setPath(nucs::cString("."), out, fixup);

    char drive = driveLetter(in);
    unsigned int const prefix = drive ? 2 : 0;
    unsigned int const length = in.length() - prefix;
    nucs::cString path;
    path.appendElements(nstd::tBounds::sum(length, 1, "tArray", "append"));
    std::replace_copy(in.begin() + prefix, in.end(), path.begin(), unsigned{'\\'}, unsigned{'/'});
    path[length] = '/';
    if (length != 0 && path[length - 1] == '/')
        path.truncate(length);

    bool aboveStart = false;
    if (fixup)
        fixupPath(path, aboveStart);
    out.swap(path);
    return aboveStart ? '\0' : drive;
}

void fixupPath(nucs::cString& path, bool& aboveStart, tPathHash*)
{
    tPathHash* const cache = hasCache();
    if (!cache) {
        aboveStart = cNormaliser(path).run();
        return;
    }
    if (nucs::cString const* const known = cache->tryFind(path)) {
        path = known->array(); // into the pool that there is
        aboveStart = false;
        return;
    }
    nucs::cString result(path);
    bool const isAbove = cNormaliser(result).run();
    remember(*cache, path, result);
    path.swap(result);
    aboveStart = isAbove;
}

cPath::cPath(tPathHash* hash)
{
    set(npi::system().fs.cwd().path(), true, hash);
}

cPath::cPath(nucs::cString const& path, bool fixup, tPathHash* hash)
{
    set(path, fixup, hash);
}

void cPath::swap(cPath& other) noexcept
{
    msPath.swap(other.msPath);
    std::swap(mcDrive, other.mcDrive);
}

char cPath::set(nucs::cString const& path, bool fixup, tPathHash* hash)
{
    mcDrive = setPath(path, msPath, fixup, hash);
    return mcDrive;
}

void cPath::fixup(tPathHash* hash)
{
    bool aboveStart = false;
    fixupPath(msPath, aboveStart, hash);
    if (aboveStart)
        mcDrive = 0;
}

void cPath::cd(nucs::cString const& path)
{
    if (path.empty())
        return;
    if (isAbsolute(path)) {
        set(path);
        return;
    }
    nucs::cString text(msPath + path);
    endWithSeparator(text);
    msPath.swap(text);
}

void cPath::makeAbsolute(cPath const& base, tPathHash* hash)
{
    if (isAbsolute())
        return;
    nucs::cString text(base.msPath + msPath);
    bool aboveStart = false;
    fixupPath(text, aboveStart, hash);
    if (aboveStart)
        mcDrive = 0;
    else if (base.isAbsolute() && base.mcDrive)
        mcDrive = base.mcDrive;
    msPath.swap(text);
}

void cPath::makeRelative(cPath const& base)
{
    if (!startsAtRoot(msPath) || !startsAtRoot(base.msPath) || mcDrive != base.mcDrive)
        return;
    nucs::cString target;
    nucs::cString start;
    setPath(msPath, target, true);
    setPath(base.msPath, start, true);

    auto common = std::mismatch(target.begin(), target.end(), start.begin(), start.end()).first;
    while (common != target.begin() && common[-1] != '/')
        --common;
    auto const shared = common - target.begin();
    auto const ups = std::count(start.begin() + shared, start.end(), unsigned{'/'});

    nucs::cString text;
    text.appendElements(
        nstd::tBounds::narrow(3ull * static_cast<unsigned long long>(ups), "tArray", "append"), '.');
    for (unsigned int i = 2; i < text.length(); i += 3)
        text[i] = '/';
    text.append(common, static_cast<unsigned int>(target.end() - common));
    if (text.empty() || nio::driveLetter(text)) // a name that looks like a drive must not become one
        text = nucs::cString("./") + text;
    msPath.swap(text);
    mcDrive = 0;
}

nucs::cString cPath::path() const
{
    if (mcDrive == 0 || isRelative())
        return msPath;
    char const prefix[] = {mcDrive, ':', '\0'};
    return nucs::cString(prefix) + msPath;
}

nucs::cString cPath::osPath() const
{
    nucs::cString text(path());
    auto const delimiter = static_cast<unsigned char>(npi::cPlatform::osSpecificPathDelimiter());
    if (delimiter != '/')
        text.replace('/', delimiter);
    return text;
}

nucs::cString cPath::getPart(unsigned int n) const
{
    unsigned int begin = 0;
    unsigned int end = 0;
    if (!passSlash(msPath, end))
        return nucs::cString();
    do {
        begin = end;
        if (!passSlash(msPath, end))
            return nucs::cString();
    } while (n-- != 0);
    return nucs::cString(std::u32string_view(msPath).substr(begin, end - 1 - begin));
}

nucs::cString cPath::getParts(unsigned int n) const
{
    nucs::cString text(path());
    unsigned int end = startsAtRoot(text) ? 1 : 0;
    do {
        if (!passSlash(text, end))
            return nucs::cString();
    } while (n-- != 0);
    text.truncate(end);
    return text;
}

nucs::cString cPath::relativeTo(nucs::cString const& fileName) const
{
    nucs::cString directory;
    storePathComponent(fileName, directory);
    if (isAbsolute(directory))
        return fileName;

    cPath target(*this);
    target.cd(directory);
    target.fixup();
    if (target.isRelative())
        target.makeAbsolute(cPath());
    return target.path() + nucs::cString(std::u32string_view(fileName).substr(pathComponentLength(fileName)));
}

bool cPath::operator==(cPath const& other) const
{
    return mcDrive == other.mcDrive
           && (msPath == other.msPath || normalised(msPath) == normalised(other.msPath));
}

bool cPath::exists(cFs* fs) const
{
    cFileInfo const info(osPath(), fileSystem(fs));
    return info.exists() && info.isDir();
}

void cPath::mkdir(cFs* fs)
{
    fileSystem(fs).createPath(*this);
}

unsigned int cPath::pathComponentLength(nucs::cString const& fileName)
{
    std::u32string_view const text(fileName);
    auto const separator = text.find_last_of(U"/\\");
    std::size_t const prefix = nio::driveLetter(fileName) ? 2 : 0;
    std::size_t const length = separator == text.npos ? prefix : separator + 1;
    auto const name = text.substr(length);
    return static_cast<unsigned int>(name == U"." || name == U".." ? text.size() : length);
}

void cPath::storePathComponent(nucs::cString const& fileName, nucs::cString& out)
{
    auto const length = pathComponentLength(fileName);
    nucs::cString directory(length == 0 ? U"." : std::u32string_view(fileName).substr(0, length));
    endWithSeparator(directory);
    out.swap(directory);
}

} // namespace nio
