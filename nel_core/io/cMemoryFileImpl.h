#pragma once

#include "nel_core/io/cAbstractFileImpl.h"
#include "nel_core/io/cMemoryTree.h"
#include "nel_core/std/tArray.h"

namespace nio {

/// A file of a memory file system. Internal to it.
class cMemoryFileImpl : public cAbstractFileImpl {
public:
    cMemoryFileImpl(cFs& fs, cAbstractIOBlockDevice& device, nstd::tSharedObject<cMemoryTree> const& tree);
    ~cMemoryFileImpl() override;

    [[nodiscard]] nstd::tAutoPtr<cAbstractFileImpl> deepCopy(cAbstractIOBlockDevice& device) const override;
    nucs::cString const& name() const override;
    void remove() override;
    void setRemoveOnClose() override;
    void release() override;
    void rename(nucs::cString const& to) override;
    nstd::cDateTime lastModified() const override;
    void open(nucs::cString const& path, OpenMode mode, CreateMode create, WriteMode write,
              bool followLinks) override;
    void close() override;
    void truncate(unsigned int size) override;
    unsigned long long readBytes(char* target, unsigned long long count) override;
    unsigned long long writeBytes(char const* source, unsigned long long count) override;
    /// A copy of what is there now.
    void* mmap() override;
    unsigned long long seek(long long offset, SeekMode mode) override;
    unsigned long long pos() const override;
    void flush() override;
    void munmap() override;

private:
    /// What copies of an open file share.
    struct cOpened {
        nstd::tSharedObject<cMemoryTree> tree; ///< keeps it in use
        tMemoryNode node;
        unsigned long long position = 0;
        bool reads = false, writes = false, appends = false;
    };

    cMemoryFileImpl(cMemoryFileImpl const& other, cAbstractIOBlockDevice& device);
    nstd::tSharedObject<cMemoryTree> tree(char const* operation, nucs::cString const& path) const;
    cOpened& requireOpen(char const* operation) const;
    static tMemoryNode findOrCreate(cMemoryTree const& tree, nucs::cString const& path, bool writes,
                                    bool creates);
    void giveBack() noexcept;

    nstd::tSharedObjectWatch<cMemoryTree> mpTree;
    nstd::tSharedObject<cOpened> mpOpened; ///< empty while the file is closed
    bool mbRemoveOnClose = false;
    nucs::cString msName;
    nstd::tArray<char> maMapping; ///< empty while the file is not mapped
};

} // namespace nio
