#pragma once

#include "nel_core/export.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/tAutoPtr.h"

namespace nstd {

/// Makes exceptions by the names of their classes.
///
/// Whoever receives exceptions supplies one that knows the classes it wants to get back, see
/// cAbstractException::createFromStream().
class NEL_EXPORT cAbstractExceptionFactory {
public:
    virtual ~cAbstractExceptionFactory();

    /// A new object of the class with that type name, whose content is loaded into it. Raises, or gives
    /// nothing, when the name is not known: the name comes from outside and can be anything.
    virtual tAutoPtr<cAbstractException> createException(cAsciiString const& typeName) const = 0;
};

} // namespace nstd
