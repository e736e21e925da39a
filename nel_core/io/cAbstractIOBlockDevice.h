#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractIODevice.h"
#include "nel_core/io/cIOBlockDeviceImpl.h"
#include "nel_core/std/tAbstractArrayProxy.h"
#include "nel_core/std/tAutoPtr.h"

namespace nio {

/// A device of known size with free access, which is an array of bytes to the array layer: views, searches,
/// comparisons and copies work on it as on memory.
///
/// Single bytes and contiguous pieces (proxyAt(), proxyProvideData()) go through a cache of at least 64 KiB;
/// ranges are copied and patched directly, past the cache. Use one of the two ways at a time. As an array it
/// has the low 32 bits of its size as length, and it grows and shrinks at its end only.
class NEL_EXPORT cAbstractIOBlockDevice : public cAbstractIODevice, public nstd::tAbstractArrayProxy<char> {
public:
    cAbstractIOBlockDevice();
    /// Copies the cache with what it holds.
    cAbstractIOBlockDevice(cAbstractIOBlockDevice const& other);
    cAbstractIOBlockDevice& operator=(cAbstractIOBlockDevice const& other);
    ~cAbstractIOBlockDevice() override;
    /// Exchanges the caches.
    void swap(cAbstractIOBlockDevice& other) noexcept;

    /// Whether the position is at the end.
    virtual bool eof();
    /// Raises a bug: not implemented.
    virtual void setSize(unsigned long long size);

    /// The byte at `i` through the cache; beyond the end raises out-of-range ortIndex.
    char const& proxyAt(unsigned int i) const override;
    /// The same, to be changed: the change reaches the device with the next flush().
    char& proxyAt(unsigned int i) override;
    unsigned int proxyLength() const override;
    /// Reads past the cache; raises cIOExceptions::throwUnableToRead() when five calls of read() do not bring
    /// the bytes.
    void proxyCopyPartTo(char* target, unsigned int start, unsigned int count) const override;
    /// Through the cache; raises cIOExceptions::throwUnableToRead() when the device has fewer bytes.
    char const* proxyProvideData(unsigned int start, unsigned int count) const override;
    unsigned int proxyPreferredBlockSize() const override;
    /// Writes past the cache; raises cIOExceptions::throwUnableToWrite() when five calls of write() do not
    /// take the bytes.
    void proxyPatchData(unsigned int start, unsigned int count, char const* source) override;
    void proxySetSize(unsigned int size) override;
    /// Appends with one write() and gives the number of bytes moved; raises a bug anywhere but at the end.
    unsigned int proxyInsert(unsigned int pos, char const* source, unsigned int count) override;
    /// Writes zeros from `pos` on, over bytes that are there. Raises cIOExceptions::throwUnableToWrite().
    unsigned int proxyInsertDefaultObjects(unsigned int pos, unsigned int count) override;
    /// Truncates and writes a debug entry; raises a bug anywhere but at the end.
    void proxyErase(unsigned int start, unsigned int count) override;
    nstd::tAbstractArrayProxy<char>& proxyPhysical(unsigned int& offset) override;
    nstd::tAbstractConstArrayProxy<char> const& constProxyPhysical(unsigned int& offset) const override;

    /// In bytes; measured anew if it is not known or when `force` is set.
    unsigned long long size(bool force = false) const;
    /// From the position to the end; 0 beyond it.
    unsigned long long bytesLeft() const;
    /// Writes changes in the cache back. Raises cIOExceptions::throwUnableToWrite() when the device takes
    /// less or only appends; the changes stay in the cache then.
    void flush();
    /// Forgets the size: something has changed it or may have.
    void touchSize();
    /// The most bytes that the array layer asks for at once; 0 for no limit: then they must all lie in one
    /// piece anyway, or a single request loads them all into the cache.
    void setPreferredBlockSize(unsigned int size);

protected:
    /// To be called when the device has got other bytes, or none: forgets what is cached, changes included.
    /// `appends` tells that every write goes to the end from now on; a flush() of changes is refused then.
    void dropCache(bool appends) noexcept;

private:
    nstd::tAutoPtr<cIOBlockDeviceImpl> mpCache; ///< never null
};

} // namespace nio
