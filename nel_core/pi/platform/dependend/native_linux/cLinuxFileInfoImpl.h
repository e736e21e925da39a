#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractFileInfoImpl.h"
#include "nel_core/std/tArray.h"
#include "nel_core/ucs/cString.h"

struct stat;

namespace npi {

/// Asks the operating system about a path. A path with a code point 0 fails every query with EINVAL.
class NEL_EXPORT cLinuxFileInfoImpl : public nio::cAbstractFileInfoImpl {
public:
    cLinuxFileInfoImpl(nio::cFs const& fs, nucs::cString const& path);
    ~cLinuxFileInfoImpl() override;

    nstd::cDateTime timeStamp(nio::cFileInfoFlags::TimeStamp which, bool followLinks) const override;
    nucs::cString const& filePath() const override;
    nucs::cString readLink() const override;
    unsigned long long size(bool followLinks) const override;
    nio::cFileInfoFlags::FileType type(bool followLinks) const override;
    nio::cPermissions readPermissions(bool followLinks) const override;

private:
    struct stat status(bool followLinks) const;

    nucs::cString msPath;
    nstd::tArray<char> maName; ///< encoded, with a zero behind
    nucs::cAbstractEnDec const& mCodec;
};

} // namespace npi
