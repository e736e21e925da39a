#include "nel_core/pi/platform/dependend/native_linux/cLinuxDirImpl.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "nel_core/io/cDir.h"
#include "nel_core/io/cFs.h"
#include "nel_core/io/fileName.h"
#include "nel_core/pi/platform/dependend/native_linux/osError.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/std/tVector.h"
#include "nel_core/ucs/cAbstractEnDec.h"

namespace npi {

using nio::cDir;

cLinuxDirImpl::cLinuxDirImpl(nio::cFs const& fs, nucs::cString const& path, int flags)
    : cLinuxDirImpl(fs, path, flags, nstd::tSharedObject<cLevel>())
{
    open(AT_FDCWD, encodedName(path, mCodec, "opendir").data());
    goToFirst();
}

// Not opened yet.
cLinuxDirImpl::cLinuxDirImpl(nio::cFs const& fs, nucs::cString const& text, int flags,
                             nstd::tSharedObject<cLevel> const& above)
    : cAbstractDirImpl(fs, text),
      moElement(fs),
      mbSkipDot((flags & cDir::dfSkipDot) != 0),
      mbSkipDotDot((flags & cDir::dfSkipDotDot) != 0),
      miFlags(flags),
      mpLevel(new cLevel{text, above}),
      mCodec(fs.endec())
{
    maName.setFitOnErase(false);
}

cLinuxDirImpl::~cLinuxDirImpl()
{
    if (mpStream)
        ::closedir(mpStream);
    while (mpLevel.unique()) { // one by one, where the way is long
        nstd::tSharedObject<cLevel> above;
        above.swap(mpLevel->above);
        mpLevel.swap(above);
    }
}

void cLinuxDirImpl::open(int directory, char const* name)
{
    int const noFollow = (miFlags & rfNoFollow) != 0 ? O_NOFOLLOW : 0;
    int const descriptor = ::openat(directory, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC | noFollow);
    if (descriptor < 0) {
        int const code = errno;
        throwOSError("opendir", code, fullPath());
    }
    mpStream = ::fdopendir(descriptor);
    if (!mpStream) {
        int const code = errno;
        ::close(descriptor);
        throwOSError("opendir", code, fullPath());
    }
}

// Where only the name is wrong, the walk begins nevertheless.
void cLinuxDirImpl::goToFirst()
{
    try {
        setNext();
    } catch (nstd::cAbstractException const&) {
        if (!mpEntry)
            throw;
    }
}

// Reads the entry again, so that it becomes the one here.
void cLinuxDirImpl::goToPlaceOf(cLinuxDirImpl const& other)
{
    mbEnd = other.mbEnd;
    if (other.miPosition != -1) {
        ::seekdir(mpStream, other.miPosition);
        miRead = other.miRead - 1;
    }
    while (!mbEnd && miRead + 1 < other.miRead && ::readdir(mpStream))
        ++miRead;
    goToFirst();
}

void cLinuxDirImpl::setNext()
{
    if (mbEnd)
        return;
    mbHasElement = false;
    do
        readEntry();
    while (mpEntry && isSkipped(mpEntry->d_name));
    mbEnd = !mpEntry;
    if (mpEntry && !acceptsAnyName())
        makeElement();
}

void cLinuxDirImpl::readEntry()
{
    mpEntry = nullptr;
    miPosition = ::telldir(mpStream);
    errno = 0;
    mpEntry = ::readdir(mpStream);
    int const code = errno;
    if (!mpEntry && code != 0)
        throwOSError("readdir", code, fullPath());
    ++miRead;
}

bool cLinuxDirImpl::isSkipped(char const* name) const
{
    if (name[0] != '.')
        return false;
    return (mbSkipDot && name[1] == 0) || (mbSkipDotDot && name[1] == '.' && name[2] == 0);
}

nio::cDirInfo const& cLinuxDirImpl::element() const
{
    if (mpEntry && !mbHasElement)
        makeElement();
    return moElement;
}

void cLinuxDirImpl::makeElement() const
{
    moElement.clear();
    decodeName(msName);
    moElement.appendPath(directory());
    moElement.appendPath(msName);
    mbHasElement = true;
}

void cLinuxDirImpl::decodeName(nucs::cString& target) const
{
    target.truncate(0);
    maName.truncate(0);
    maName.append(mpEntry->d_name);
    try {
        mCodec.decode(nstd::tConstArrayRef<char>(maName), target);
    } catch (nstd::cAbstractException const&) {
        if (!acceptsAnyName())
            throw;
        target = mpEntry->d_name;
    }
}

nucs::cString const& cLinuxDirImpl::directory() const
{
    if (msDirectory.empty())
        msDirectory = nio::asDirectory(fullPath());
    return msDirectory;
}

nucs::cString cLinuxDirImpl::fullPath() const
{
    nstd::tVector<cLevel const*> way;
    for (cLevel const* level = mpLevel.get(); level; level = level->above.get())
        way.append(level);
    nucs::cString full(way[way.size() - 1]->text);
    for (unsigned int i = way.size() - 1; i-- > 0;) {
        if (full[full.length() - 1] != '/')
            full.append('/');
        full.addString(way[i]->text);
    }
    return full;
}

bool cLinuxDirImpl::isEnd() const
{
    return mbEnd;
}

nstd::tAutoPtr<nio::cAbstractDirImpl> cLinuxDirImpl::createCopy() const
{
    auto* const made = new cLinuxDirImpl(fs(), path(), miFlags, mpLevel->above);
    nstd::tAutoPtr<nio::cAbstractDirImpl> copy(made);
    made->open(::dirfd(mpStream), ".");
    made->goToPlaceOf(*this);
    return copy;
}

nstd::tAutoPtr<nio::cAbstractDirImpl> cLinuxDirImpl::enterEntry() const
{
    if (!isEntryDirectory())
        return nstd::tAutoPtr<cAbstractDirImpl>();
    decodeName(msName);
    int const flags = cDir::dfSkipDot | cDir::dfSkipDotDot | rfNoFollow | rfAnyName;
    auto* const made = new cLinuxDirImpl(fs(), msName, flags, mpLevel);
    nstd::tAutoPtr<nio::cAbstractDirImpl> entries(made);
    made->open(::dirfd(mpStream), mpEntry->d_name);
    made->goToFirst();
    return entries;
}

void cLinuxDirImpl::removeEntry()
{
    if (!mpEntry)
        return;
    int const flags = isEntryDirectory() ? AT_REMOVEDIR : 0;
    if (::unlinkat(::dirfd(mpStream), mpEntry->d_name, flags) == 0)
        return;
    int const code = errno;
    if (code != ENOENT)
        throwOSError("unlink", code, element().fullPath());
}

bool cLinuxDirImpl::isEntryDirectory() const
{
    if (!mpEntry)
        return false;
    if (mpEntry->d_type != DT_UNKNOWN)
        return mpEntry->d_type == DT_DIR;
    struct stat status;
    return ::fstatat(::dirfd(mpStream), mpEntry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0
           && S_ISDIR(status.st_mode);
}

} // namespace npi
