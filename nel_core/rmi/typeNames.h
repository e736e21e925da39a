#pragma once

#include <type_traits>

#include "nel_core/sa/tTypeName.h"
#include "nel_core/std/cAsciiString.h"

namespace nrmi {

/// The type in which an argument is referred to in a frame and travels: neither a reference nor constant.
template<typename T>
using tPlain = std::remove_cv_t<std::remove_reference_t<T>>;

/// Puts ", " between the names.
NEL_EXPORT nstd::cAsciiString joinTypeNames(char const* const* names, unsigned int count);

/// The names of the plain types, separated by ", ".
template<typename... T>
nstd::cAsciiString typeNames()
{
    if constexpr (sizeof...(T) == 0) {
        return nstd::cAsciiString();
    } else {
        char const* const names[] = {nsa::tTypeName<tPlain<T>>::name()...};
        return joinTypeNames(names, sizeof...(T));
    }
}

} // namespace nrmi
