#include "nel_core/io/cMemoryDirImpl.h"

#include <cerrno>

#include "nel_core/io/cDir.h"
#include "nel_core/io/fileName.h"
#include "nel_core/io/memoryAccess.h"

namespace nio {

cMemoryDirImpl::cMemoryDirImpl(cFs const& fs, nucs::cString const& path, int flags,
                               nstd::tSharedObject<cMemoryTree> const& tree)
    : cAbstractDirImpl(fs, path),
      mpTree(tree),
      mpDirectory(requireNode(*tree, "opendir", path)),
      miFlags(flags),
      moElement(fs)
{
    if (!mpDirectory->isDirectory)
        throwMemoryError("opendir", ENOTDIR, path);
    goTo(sgDot, nucs::cString("."));
    if ((miFlags & cDir::dfSkipDot) != 0)
        setNext();
}

cMemoryDirImpl::cMemoryDirImpl(cMemoryDirImpl const& other)
    : cAbstractDirImpl(other.fs(), other.path()),
      mpTree(other.mpTree),
      mpDirectory(other.mpDirectory),
      miFlags(other.miFlags),
      meStage(other.meStage),
      msName(other.msName),
      moElement(other.moElement)
{
}

cMemoryDirImpl::~cMemoryDirImpl() = default;

void cMemoryDirImpl::setNext()
{
    if (meStage == sgEnd)
        return;
    if (meStage == sgDot && (miFlags & cDir::dfSkipDotDot) == 0) {
        goTo(sgDotDot, nucs::cString(".."));
        return;
    }
    auto place = meStage == sgEntry ? mpDirectory->placeOf(msName) : 0;
    if (meStage == sgEntry && place < mpDirectory->entries.size()
        && mpDirectory->entries[place].name == msName)
        ++place;
    if (place < mpDirectory->entries.size())
        goTo(sgEntry, mpDirectory->entries[place].name);
    else
        meStage = sgEnd;
}

void cMemoryDirImpl::goTo(Stage stage, nucs::cString const& name)
{
    meStage = stage;
    msName = name;
    moElement.clear();
    moElement.appendPath(asDirectory(path()));
    moElement.appendPath(name);
}

cDirInfo const& cMemoryDirImpl::element() const
{
    return moElement;
}

bool cMemoryDirImpl::isEnd() const
{
    return meStage == sgEnd;
}

nstd::tAutoPtr<cAbstractDirImpl> cMemoryDirImpl::createCopy() const
{
    return nstd::tAutoPtr<cAbstractDirImpl>(new cMemoryDirImpl(*this));
}

nstd::tAutoPtr<cAbstractDirImpl> cMemoryDirImpl::enterEntry() const
{
    return nstd::tAutoPtr<cAbstractDirImpl>();
}

void cMemoryDirImpl::removeEntry()
{
    if (meStage == sgEntry)
        cMemoryTree::removeTree(*mpDirectory, msName);
}

} // namespace nio
