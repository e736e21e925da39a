#include "nel_core/pi/platform/dependend/native_linux/cLinuxFileInfoImpl.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

#include "nel_core/io/cFs.h"
#include "nel_core/io/cPermissions.h"
#include "nel_core/io/fileName.h"
#include "nel_core/pi/platform/dependend/native_linux/fileStatus.h"
#include "nel_core/pi/platform/dependend/native_linux/osError.h"
#include "nel_core/std/cDateTime.h"
#include "nel_core/std/tConstArrayRef.h"
#include "nel_core/ucs/cAbstractEnDec.h"

namespace npi {

cLinuxFileInfoImpl::cLinuxFileInfoImpl(nio::cFs const& fs, nucs::cString const& path)
    : cAbstractFileInfoImpl(fs),
      msPath(path),
      maName(encodedUnchecked(path, fs.endec())),
      mCodec(fs.endec())
{
}

cLinuxFileInfoImpl::~cLinuxFileInfoImpl() = default;

nstd::cDateTime cLinuxFileInfoImpl::timeStamp(nio::cFileInfoFlags::TimeStamp which, bool followLinks) const
{
    return timeStampOf(status(followLinks), which);
}

nucs::cString const& cLinuxFileInfoImpl::filePath() const
{
    return msPath;
}

// The target has no size that could be relied on: it may be changed meanwhile, and some systems tell none.
nucs::cString cLinuxFileInfoImpl::readLink() const
{
    if (!isWholeName(maName))
        throwOSError("readlink", EINVAL, msPath);
    nstd::tArray<char> target;
    for (unsigned int room = 256;; room *= 2) {
        target.setSize(room);
        auto const length = ::readlink(maName.data(), target.data(), room);
        if (length < 0)
            throwOSError("readlink", errno, msPath);
        if (static_cast<unsigned int>(length) < room) {
            target.truncate(static_cast<unsigned int>(length));
            break;
        }
    }
    nucs::cString text;
    mCodec.decode(nstd::tConstArrayRef<char>(target), text);
    return text;
}

unsigned long long cLinuxFileInfoImpl::size(bool followLinks) const
{
    return static_cast<unsigned long long>(status(followLinks).st_size);
}

nio::cFileInfoFlags::FileType cLinuxFileInfoImpl::type(bool followLinks) const
{
    return typeOf(status(followLinks).st_mode);
}

nio::cPermissions cLinuxFileInfoImpl::readPermissions(bool followLinks) const
{
    auto permissions = permissionsOf(status(followLinks).st_mode);
    if (nio::isHiddenName(msPath))
        permissions.setPermission(permissions.permissions() | nio::cPermissions::pmHidden);
    return permissions;
}

struct stat cLinuxFileInfoImpl::status(bool followLinks) const
{
    struct stat result;
    if (!isWholeName(maName))
        throwOSError("stat", EINVAL, msPath);
    if (readStatus(maName, followLinks, result) != 0)
        throwOSError("stat", errno, msPath);
    return result;
}

} // namespace npi
