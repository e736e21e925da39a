#pragma once

#include "nel_core/export.h"
#include "nel_core/io/cAbstractFileImpl.h"
#include "nel_core/ucs/cString.h"

namespace npi {

/// A file of the operating system.
///
/// A call that a signal interrupts is repeated twice in a transfer; the third interruption ends it with the
/// bytes moved so far, or raises when there are none. Names are encoded with the codec that the file system
/// had when this was made. The descriptor is closed on exec and is never one of the three standard ones by
/// accident.
class NEL_EXPORT cLinuxFileImpl : public nio::cAbstractFileImpl {
public:
    /// Not open.
    cLinuxFileImpl(nio::cFs& fs, nio::cAbstractIOBlockDevice& device);
    /// As close(), but quiet. When the flush fails, descriptor and mapping are given back and that is all.
    ~cLinuxFileImpl() override;

    [[nodiscard]] nstd::tAutoPtr<nio::cAbstractFileImpl>
    deepCopy(nio::cAbstractIOBlockDevice& device) const override;
    nucs::cString const& name() const override { return msName; }
    void remove() override;
    void setRemoveOnClose() override { mbRemoveOnClose = true; }
    void release() override { mbRemoveOnClose = false; }
    void rename(nucs::cString const& to) override;
    /// Renames any file; errors carry `from`.
    static void rename(nucs::cString const& from, nucs::cString const& to, nucs::cAbstractEnDec const& codec);
    nstd::cDateTime lastModified() const override;
    void open(nucs::cString const& path, nio::OpenMode mode, nio::CreateMode create, nio::WriteMode write,
              bool followLinks) override;
    /// Flushes if the file is writable, and closes once: the descriptor is gone whatever that says. The
    /// removal of a marked file comes last, also for one that is not open; a failure before it leaves the
    /// file.
    void close() override;
    void truncate(unsigned int size) override;
    unsigned long long readBytes(char* target, unsigned long long count) override;
    unsigned long long writeBytes(char const* source, unsigned long long count) override;
    void* mmap() override;
    unsigned long long seek(long long offset, nio::SeekMode mode) override;
    unsigned long long pos() const override;
    void flush() override;
    void munmap() override;

private:
    cLinuxFileImpl(nio::cFs& fs, nio::cAbstractIOBlockDevice& device, nucs::cAbstractEnDec const& codec);

    void requireOpen(char const* operation) const;
    void closeDescriptor();
    void giveBack() noexcept;
    [[noreturn]] void failRead(int code, unsigned long long count, unsigned long long block) const;

    int miDescriptor = 0; ///< 0: not open
    bool mbWritable = false;
    bool mbRemoveOnClose = false;
    nucs::cString msName;
    void* mpMapping = nullptr; ///< of the whole file, read only; null when none
    unsigned int miMappingLength = 0;
    nucs::cAbstractEnDec const& mCodec;
};

} // namespace npi
