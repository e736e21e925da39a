#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cFileInfoFlags.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

namespace nio {

/// What a file system tells of one path. Every query asks anew; it raises nstd::cOSErrorException when
/// nothing is there.
class NEL_EXPORT cAbstractFileInfoImpl {
public:
    explicit cAbstractFileInfoImpl(cFs const& fs) noexcept : mFs(fs) { }
    cAbstractFileInfoImpl(cAbstractFileInfoImpl const&) = delete;
    cAbstractFileInfoImpl& operator=(cAbstractFileInfoImpl const&) = delete;
    virtual ~cAbstractFileInfoImpl();

    virtual nstd::cDateTime timeStamp(cFileInfoFlags::TimeStamp which, bool followLinks) const = 0;
    /// The path as it was given.
    virtual nucs::cString const& filePath() const = 0;
    /// The target of a symbolic link.
    virtual nucs::cString readLink() const = 0;
    /// In bytes.
    virtual unsigned long long size(bool followLinks) const = 0;
    virtual cFileInfoFlags::FileType type(bool followLinks) const = 0;
    virtual cPermissions readPermissions(bool followLinks) const = 0;

    cFs const& fs() const noexcept { return mFs; }

private:
    cFs const& mFs;
};

} // namespace nio
