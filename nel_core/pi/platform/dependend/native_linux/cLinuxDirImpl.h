#pragma once

#include <dirent.h>

#include "nel_core/export.h"
#include "nel_core/io/cAbstractDirImpl.h"
#include "nel_core/io/cDirInfo.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tSharedObject.h"

namespace npi {

/// Walks a directory of the operating system. Holds it open.
///
/// A name that the codec refuses makes setNext() raise, having gone to that entry; element() raises the same
/// there. Failures raise the OS errors "opendir" and "readdir".
class NEL_EXPORT cLinuxDirImpl : public nio::cAbstractDirImpl {
public:
    /// Stands at the first entry; a refused name is told by element() then.
    cLinuxDirImpl(nio::cFs const& fs, nucs::cString const& path, int flags);
    ~cLinuxDirImpl() override;

    void setNext() override;
    nio::cDirInfo const& element() const override;
    bool isEnd() const override;
    [[nodiscard]] nstd::tAutoPtr<nio::cAbstractDirImpl> createCopy() const override;
    /// These go by the open directory, never by its path.
    [[nodiscard]] nstd::tAutoPtr<nio::cAbstractDirImpl> enterEntry() const override;
    void removeEntry() override;

private:
    /// One directory on the way to an entry. Walks that enter each other share the way, so that a deep tree
    /// does not take a path a level.
    struct cLevel {
        nucs::cString text; ///< the path of the first one, then names
        nstd::tSharedObject<cLevel> above;
    };

    cLinuxDirImpl(nio::cFs const& fs, nucs::cString const& text, int flags,
                  nstd::tSharedObject<cLevel> const& above);
    void open(int directory, char const* name);
    void goToFirst();
    void goToPlaceOf(cLinuxDirImpl const& other);
    void readEntry();
    bool isSkipped(char const* name) const;
    bool acceptsAnyName() const { return (miFlags & rfAnyName) != 0; }
    void decodeName(nucs::cString& target) const;
    void makeElement() const;
    nucs::cString fullPath() const;
    nucs::cString const& directory() const;
    bool isEntryDirectory() const;

    DIR* mpStream = nullptr;
    long miPosition = 0;             ///< of the entry, as telldir() gives it; -1 where it cannot tell
    mutable nio::cDirInfo moElement; ///< not made until it is needed, where every name is accepted
    bool mbEnd = false;
    bool mbSkipDot;
    bool mbSkipDotDot;
    int miFlags;
    unsigned int miRead = 0;         ///< entries read, skipped ones included
    dirent const* mpEntry = nullptr; ///< valid until the next one is read; null at the end
    mutable bool mbHasElement = false;
    nstd::tSharedObject<cLevel> mpLevel;
    mutable nucs::cString msDirectory; ///< with a separator at its end; empty until it is needed
    mutable nucs::cString msName;      ///< reused for every entry, as the bytes are
    mutable nstd::tArray<char> maName;
    nucs::cAbstractEnDec const& mCodec;
};

} // namespace npi
