#include "nel_core/pi/platform/dependend/native_linux/cLinuxFsImpl.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

#include "nel_core/io/cFs.h"
#include "nel_core/io/cPath.h"
#include "nel_core/io/cPermissions.h"
#include "nel_core/io/fileName.h"
#include "nel_core/pi/cPIExceptions.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxDirImpl.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxFileImpl.h"
#include "nel_core/pi/platform/dependend/native_linux/cLinuxFileInfoImpl.h"
#include "nel_core/pi/platform/dependend/native_linux/fileStatus.h"
#include "nel_core/pi/platform/dependend/native_linux/osError.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/ucs/cString.h"

namespace npi {
namespace {

constexpr unsigned int kLongestDirectory = 32767;

} // namespace

cLinuxFsImpl::cLinuxFsImpl(nio::cFs& fs) : cAbstractFsImpl(fs), mCodec(fs.endec()) { }

cLinuxFsImpl::~cLinuxFsImpl() = default;

bool cLinuxFsImpl::exists(nucs::cString const& path, bool followLinks, nstd::cDateTime* stamp,
                          nio::cFileInfoFlags::TimeStamp which) const
{
    auto const name = encodedUnchecked(path, mCodec);
    struct stat status;
    if (!isWholeName(name) || readStatus(name, followLinks, status) != 0)
        return false;
    if (stamp)
        *stamp = timeStampOf(status, which);
    return true;
}

void cLinuxFsImpl::remove(nucs::cString const& path)
{
    auto const name = encodedName(path, mCodec, "unlink");
    struct stat status;
    if (readStatus(name, false, status) != 0)
        return;
    if ((S_ISDIR(status.st_mode) ? ::rmdir(name.data()) : ::unlink(name.data())) != 0)
        throwOSError("unlink", errno, path);
}

nio::cPath cLinuxFsImpl::cwd() const
{
    char directory[kLongestDirectory];
    if (!::getcwd(directory, sizeof(directory)))
        cPIExceptions::throwUnableGetCWD();
    return nio::cPath(nio::decodedPath(directory, mCodec), false);
}

void cLinuxFsImpl::mkdir(nucs::cString const& path)
{
    auto const name = encodedName(path, mCodec, "mkdir");
    if (::mkdir(name.data(), 0777) != 0)
        throwOSError("mkdir", errno, path);
}

void cLinuxFsImpl::rename(nucs::cString const& from, nucs::cString const& to)
{
    cLinuxFileImpl::rename(from, to, mCodec);
}

bool cLinuxFsImpl::supportsSymLinks() const
{
    return true;
}

void cLinuxFsImpl::createSymLink(nucs::cString const& target, nucs::cString const& link)
{
    auto const targetName = encodedName(target, mCodec, "symlink");
    auto const linkName = encodedName(link, mCodec, "symlink");
    if (::symlink(targetName.data(), linkName.data()) != 0)
        throwOSError("symlink", errno, link);
}

void cLinuxFsImpl::setPermissions(nucs::cString const& path, nio::cPermissions const& permissions, bool)
{
    auto const name = encodedName(path, mCodec, "chmod");
    if (::chmod(name.data(), modeOf(permissions)) != 0)
        throwOSError("chmod", errno, path);
}

nstd::tAutoPtr<nio::cAbstractDirImpl> cLinuxFsImpl::createDirImpl(nio::cFs const& fs,
                                                                  nucs::cString const& path, int flags) const
{
    return nstd::tAutoPtr<nio::cAbstractDirImpl>(new cLinuxDirImpl(fs, path, flags));
}

nstd::tAutoPtr<nio::cAbstractFileInfoImpl> cLinuxFsImpl::createFileInfoImpl(nio::cFs const& fs,
                                                                            nucs::cString const& path) const
{
    return nstd::tAutoPtr<nio::cAbstractFileInfoImpl>(new cLinuxFileInfoImpl(fs, path));
}

nstd::tAutoPtr<nio::cAbstractFileImpl>
cLinuxFsImpl::createFileImpl(nio::cFs& fs, nio::cAbstractIOBlockDevice& device, nucs::cString const&) const
{
    return nstd::tAutoPtr<nio::cAbstractFileImpl>(new cLinuxFileImpl(fs, device));
}

} // namespace npi
