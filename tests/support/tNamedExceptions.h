#pragma once

#include "nel_core/std/cAbstractExceptionFactory.h"
#include "nel_core/std/tExceptionLeaf.h"

namespace ntest {

/// Makes exceptions of the classes listed, by the names of the classes; gives nothing for another name.
template<typename... Known>
class tNamedExceptions : public nstd::cAbstractExceptionFactory {
public:
    nstd::tAutoPtr<nstd::cAbstractException> createException(nstd::cAsciiString const& name) const override
    {
        nstd::cAbstractException* made = nullptr;
        static_cast<void>(
            ((name == nstd::cAsciiString(nstd::classNameOf<Known>()) && (made = new Known)) || ...));
        return nstd::tAutoPtr<nstd::cAbstractException>(made);
    }
};

} // namespace ntest
