#pragma once

#include "nel_core/export.h"

namespace nio {

/// Who may do what with a file: a set of bits.
class NEL_EXPORT cPermissions {
public:
    enum Bits : unsigned int {
        pmSetUserId = 0x1,
        pmSetGroupId = 0x2,
        pmSticky = 0x4,
        pmOwnerRead = 0x8,
        pmOwnerWrite = 0x10,
        pmOwnerExecute = 0x20,
        pmGroupRead = 0x40,
        pmGroupWrite = 0x80,
        pmGroupExecute = 0x100,
        pmOthersRead = 0x200,
        pmOthersWrite = 0x400,
        pmOthersExecute = 0x800,
        pmArchive = 0x1000, ///< not stored by the native file system
        pmHidden = 0x2000,  ///< not stored by the native file system, which tells it by the name
    };

    /// Nothing is permitted.
    cPermissions() = default;
    explicit cPermissions(unsigned long long permissions) : miPermissions(permissions) { }

    unsigned long long permissions() const noexcept { return miPermissions; }
    /// Replaces all bits.
    void setPermission(unsigned long long permissions) noexcept { miPermissions = permissions; }

    /// Whether anybody may.
    bool isReadable() const noexcept { return has(pmOwnerRead | pmGroupRead | pmOthersRead); }
    bool isWriteable() const noexcept { return has(pmOwnerWrite | pmGroupWrite | pmOthersWrite); }
    bool isExecutable() const noexcept { return has(pmOwnerExecute | pmGroupExecute | pmOthersExecute); }
    bool isArchive() const noexcept { return has(pmArchive); }

private:
    bool has(unsigned int bits) const noexcept { return (miPermissions & bits) != 0; }

    unsigned long long miPermissions = 0;
};

} // namespace nio
