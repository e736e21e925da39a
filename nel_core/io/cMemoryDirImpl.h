#pragma once

#include "nel_core/io/cAbstractDirImpl.h"
#include "nel_core/io/cDirInfo.h"
#include "nel_core/io/cMemoryTree.h"

namespace nio {

/// Walks a directory of a memory file system, by name; what is added or removed meanwhile behind the entry is
/// seen. Internal to the file system.
class cMemoryDirImpl : public cAbstractDirImpl {
public:
    cMemoryDirImpl(cFs const& fs, nucs::cString const& path, int flags,
                   nstd::tSharedObject<cMemoryTree> const& tree);
    ~cMemoryDirImpl() override;

    void setNext() override;
    cDirInfo const& element() const override;
    bool isEnd() const override;
    [[nodiscard]] nstd::tAutoPtr<cAbstractDirImpl> createCopy() const override;
    /// Null: removeEntry() removes a directory with all that is in it.
    [[nodiscard]] nstd::tAutoPtr<cAbstractDirImpl> enterEntry() const override;
    void removeEntry() override;

private:
    /// Where the walk is; the dots come before the entries.
    enum Stage : unsigned int { sgDot, sgDotDot, sgEntry, sgEnd };

    cMemoryDirImpl(cMemoryDirImpl const& other);
    void goTo(Stage stage, nucs::cString const& name);

    nstd::tSharedObject<cMemoryTree> mpTree; ///< keeps it in use
    tMemoryNode mpDirectory;
    int miFlags;
    Stage meStage = sgEnd;
    nucs::cString msName; ///< of the entry
    cDirInfo moElement;
};

} // namespace nio
