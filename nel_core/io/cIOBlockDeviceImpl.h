#pragma once

#include "nel_core/export.h"
#include "nel_core/io/fwd.h"
#include "nel_core/std/tArray.h"

namespace nio {

/// The block cache of a device: one range of its bytes, loaded and written back as a whole.
///
/// It does not notice what is read and written past it, and asks the device for nothing but pos(), seek(),
/// read() and write().
class NEL_EXPORT cIOBlockDeviceImpl {
public:
    /// Caches nothing yet; the device is set before anything is asked.
    cIOBlockDeviceImpl();
    /// Copies the cached bytes and the settings, not the device and its size.
    cIOBlockDeviceImpl(cIOBlockDeviceImpl const& other);
    cIOBlockDeviceImpl& operator=(cIOBlockDeviceImpl const&) = delete;
    /// Exchanges everything but the devices.
    void swap(cIOBlockDeviceImpl& other) noexcept;

    /// The device, not owned; a missing one fails the assertion "mpDevice != 0".
    cAbstractIOBlockDevice& bd() const;
    void setBD(cAbstractIOBlockDevice* device) noexcept { mpDevice = device; }

    /// The size of the device in bytes, measured by seeking unless it is known; 0 is never known.
    unsigned long long size(bool force);
    /// Forgets the size.
    void touchSize() noexcept { miSize = 0; }
    /// Makes the cache hold the `count` bytes at `pos`, as far as the device has them, and gives the index of
    /// the first one in it; 0 when it has none. What has to be loaded is preceded by a flush(). Raises
    /// cIOExceptions::throwUnableToRead() when the device hands out less than it has.
    unsigned int cacheLocation(unsigned int pos, unsigned int count);
    /// Whether it has the `count` bytes at `pos`.
    bool holds(unsigned int pos, unsigned int count) const noexcept;
    /// The byte at `pos`; beyond the end raises out-of-range ortIndex.
    char const& at(unsigned int pos);
    /// The same, to be changed: it is written back with the next flush().
    char& toModifyAt(unsigned int pos);
    /// Writes the cache back if it was changed. Raises cIOExceptions::throwUnableToWrite() when the device
    /// takes less or only appends; the cache stays changed then.
    void flush();
    /// Forgets the bytes, also changed ones, and the size: the device has other bytes from now on.
    void drop() noexcept;
    /// Whether every write to the device goes to its end, so that nothing can be written back.
    void setAppending(bool appends) noexcept { mbAppending = appends; }

    /// The most bytes that the array layer asks for at once; 0 for no limit.
    unsigned int preferredBlockSize() const noexcept { return miPreferredBlockSize; }
    void setPreferredBlockSize(unsigned int size) noexcept { miPreferredBlockSize = size; }
    nstd::tArray<char>& cache() noexcept { return maCache; }

private:
    void load(unsigned int pos, unsigned int count);
    unsigned long long left(unsigned int pos);
    unsigned long long measuredSize() const;

    nstd::tArray<char> maCache;
    cAbstractIOBlockDevice* mpDevice = nullptr;
    unsigned int miStart = 0; ///< of the cache in the device
    bool mbNeedsReload = true;
    bool mbDirty = false;
    unsigned int miPreferredBlockSize = 65536;
    unsigned long long miSize = 0; ///< 0: unknown
    bool mbAppending = false;
};

} // namespace nio
