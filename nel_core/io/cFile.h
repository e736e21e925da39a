#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractFileImpl.h"
#include "nel_core/io/cAbstractIOBlockDevice.h"
#include "nel_core/io/fwd.h"

namespace nio {

/// A file of a file system: a block device, and so an array of bytes.
///
/// Failures of the operating system raise nstd::cOSErrorException with the name of the call; where the file
/// is not open, with the error number 77. The destructor flushes and closes, and swallows what fails then:
/// close() says whether all bytes have arrived. The file system must outlive the file. Changes of single
/// bytes (a writeable proxyAt()) cannot be written to a file that is open for appending: flush() and close()
/// raise.
class NEL_EXPORT cFile : public cAbstractIOBlockDevice {
public:
    /// A file that is not open; `path` chooses the file system that will serve it.
    cFile(cFs& fs, nucs::cString const& path);
    /// Opens a file of the system's file system, as open() does. The bytes are decoded with its codec.
    cFile(nucs::cString const& path, OpenMode mode, CreateMode create, WriteMode write);
    cFile(char const* path, OpenMode mode, CreateMode create, WriteMode write);
    /// The same open file with a descriptor of its own; both share one position. A mapping is not copied, the
    /// mark of setRemoveOnClose() is.
    cFile(cFile const& other);
    /// Takes the file over; `other` is a closed file of the same file system.
    cFile(cFile&& other);
    cFile& operator=(cFile const& other);
    ~cFile() override;
    void swap(cFile& other) noexcept;

    unsigned long long read(void* target, unsigned long long count) override;
    unsigned long long write(void const* source, unsigned long long count) override;
    /// The path given to open().
    nucs::cString const& name() const override;
    unsigned long long seek(long long offset, SeekMode mode) override;
    unsigned long long pos() const override;
    void truncate(unsigned int size) override;
    /// Maps the file, which is open for reading only: from then on its bytes come in one piece. Raises
    /// nstd::cRuntimeException for a file that is open for writing or is mapped already.
    void mmap() override;
    using cAbstractIOBlockDevice::proxyAt;
    /// A mapped file has its bytes in one piece, which is valid until the file is closed or opened anew;
    /// otherwise they come through the cache.
    char const& proxyAt(unsigned int i) const override;
    char const* proxyProvideData(unsigned int start, unsigned int count) const override;

    /// Removes the file now.
    virtual void remove();
    /// Lets every close() remove the file, until release().
    virtual void setRemoveOnClose();
    virtual void release();
    /// Renames the file; name() stays what it was.
    virtual void rename(nucs::cString const& to);
    /// To the second.
    virtual nstd::cDateTime lastModified() const;
    /// Opens `path`, having closed what was open. Raises cIOExceptions::throwUnableOpenFile().
    virtual void open(nucs::cString const& path, OpenMode mode, CreateMode create, WriteMode write,
                      bool followLinks = true);
    /// Flushes and closes. The file is closed then, even when that raises; changes in the cache are dropped.
    virtual void close();
    /// Writes changes in the cache to the file. Forces nothing to the disk.
    virtual void flush();

    cFs& fs() const;

private:
    class cCacheDrop;

    void forgetMapping() noexcept;

    nstd::tAutoPtr<cAbstractFileImpl> mpImpl; ///< never null
    char const* mpMapping = nullptr;          ///< the implementation's; null when none
    unsigned int miMappingLength = 0;
    unsigned int miUnmappedBlockSize = 0; ///< what is preferred when the mapping has ended
};

} // namespace nio
