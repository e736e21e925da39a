#include "nel_core/pi/platform/dependend/native_linux/fileStatus.h"

#include "nel_core/io/cPermissions.h"
#include "nel_core/std/cDateTime.h"

namespace npi {
namespace {

using nio::cFileInfoFlags;
using nio::cPermissions;

struct cModeBit {
    cPermissions::Bits bit;
    mode_t mode;
};

constexpr cModeBit kModeBits[] = {
    {cPermissions::pmSetUserId, S_ISUID},    {cPermissions::pmSetGroupId, S_ISGID},
    {cPermissions::pmSticky, S_ISVTX},       {cPermissions::pmOwnerRead, S_IRUSR},
    {cPermissions::pmOwnerWrite, S_IWUSR},   {cPermissions::pmOwnerExecute, S_IXUSR},
    {cPermissions::pmGroupRead, S_IRGRP},    {cPermissions::pmGroupWrite, S_IWGRP},
    {cPermissions::pmGroupExecute, S_IXGRP}, {cPermissions::pmOthersRead, S_IROTH},
    {cPermissions::pmOthersWrite, S_IWOTH},  {cPermissions::pmOthersExecute, S_IXOTH},
};

time_t secondsOf(struct stat const& status, cFileInfoFlags::TimeStamp which)
{
    if (which == cFileInfoFlags::tsLastAccess)
        return status.st_atime;
    return which == cFileInfoFlags::tsLastStatusChange ? status.st_ctime : status.st_mtime;
}

} // namespace

int readStatus(tEncodedName const& name, bool followLinks, struct stat& status)
{
    return followLinks ? ::stat(name.data(), &status) : ::lstat(name.data(), &status);
}

nstd::cDateTime timeStampOf(struct stat const& status, cFileInfoFlags::TimeStamp which)
{
    return nstd::cDateTime(nstd::cTime(static_cast<unsigned long long>(secondsOf(status, which)) * 1000000));
}

cFileInfoFlags::FileType typeOf(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFDIR: return cFileInfoFlags::ftDir;
    case S_IFCHR: return cFileInfoFlags::ftCharDevice;
    case S_IFBLK: return cFileInfoFlags::ftBlockDevice;
    case S_IFIFO: return cFileInfoFlags::ftPipe;
    case S_IFLNK: return cFileInfoFlags::ftSymLink;
    case S_IFSOCK: return cFileInfoFlags::ftSocket;
    default: return cFileInfoFlags::ftFile;
    }
}

cPermissions permissionsOf(mode_t mode)
{
    unsigned int bits = 0;
    for (auto const& row : kModeBits)
        bits |= (mode & row.mode) != 0 ? row.bit : 0u;
    return cPermissions(bits);
}

mode_t modeOf(cPermissions const& permissions)
{
    mode_t mode = 0;
    for (auto const& row : kModeBits)
        mode |= (permissions.permissions() & row.bit) != 0 ? row.mode : 0u;
    return mode;
}

} // namespace npi
