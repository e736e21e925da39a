#pragma once

#include "nel_core/export.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/fwd.h"

namespace nio {

/// What a file does on its file system. It serves the block device, a cFile, that owns it.
///
/// Failures of the operating system raise nstd::cOSErrorException; where the file is not open, with the error
/// number 77.
class NEL_EXPORT cAbstractFileImpl {
public:
    cAbstractFileImpl(cFs& fs, cAbstractIOBlockDevice& device) noexcept : mFs(fs), mpBD(&device) { }
    cAbstractFileImpl(cAbstractFileImpl const&) = delete;
    cAbstractFileImpl& operator=(cAbstractFileImpl const&) = delete;
    virtual ~cAbstractFileImpl();

    /// The same file, with the same position if it is open, for another block device.
    [[nodiscard]] virtual nstd::tAutoPtr<cAbstractFileImpl>
    deepCopy(cAbstractIOBlockDevice& device) const = 0;
    /// The path given to open().
    virtual nucs::cString const& name() const = 0;
    virtual void remove() = 0;
    virtual void setRemoveOnClose() = 0;
    virtual void release() = 0;
    virtual void rename(nucs::cString const& to) = 0;
    virtual nstd::cDateTime lastModified() const = 0;
    virtual void open(nucs::cString const& path, OpenMode mode, CreateMode create, WriteMode write,
                      bool followLinks) = 0;
    virtual void close() = 0;
    virtual void truncate(unsigned int size) = 0;
    /// Move up to `count` bytes and give the number moved.
    virtual unsigned long long readBytes(char* target, unsigned long long count) = 0;
    virtual unsigned long long writeBytes(char const* source, unsigned long long count) = 0;
    /// Maps the whole file for reading and gives the address, valid until munmap() or close().
    virtual void* mmap() = 0;
    /// Gives the new position.
    virtual unsigned long long seek(long long offset, SeekMode mode) = 0;
    virtual unsigned long long pos() const = 0;
    virtual void flush() = 0;
    virtual void munmap() = 0;

    cFs& fs() const noexcept { return mFs; }
    /// The block device; a missing one fails the assertion "mpBD != 0".
    cAbstractIOBlockDevice& bd() const;
    /// Exchanges the block devices.
    void swapBD(cAbstractFileImpl& other) noexcept;

private:
    cFs& mFs;
    cAbstractIOBlockDevice* mpBD; ///< not owned
};

} // namespace nio
