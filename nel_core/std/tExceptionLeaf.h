#pragma once

#include <string_view>

#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"

namespace nstd {

/// The compiler's text of this very function, which ends in "T = nstd::cX]".
template<typename T>
constexpr char const* signatureOf()
{
    return __PRETTY_FUNCTION__;
}

/// The name of a class without its namespaces, known at compile time.
template<typename T>
constexpr std::string_view classNameOf()
{
    std::string_view name = signatureOf<T>();
    name.remove_suffix(1);
    name.remove_prefix(name.find_last_of(": ") + 1);
    return name;
}

/// What every concrete exception class has alike: it can be copied onto the heap, it tells its name, and it
/// can be exchanged with another of its class.
///
/// A leaf derives from tExceptionLeaf<itself, its base>. It adds its fields and their accessors, a
/// constructor that makes its message, an out-of-line destructor, the copy and move operations and, if it has
/// fields, a swap() of its own.
template<typename Leaf, typename Base>
class tExceptionLeaf : public Base {
public:
    using Base::Base;

    [[nodiscard]] cAbstractException* createObject() const override
    {
        return new Leaf(static_cast<Leaf const&>(*this));
    }

    cAsciiString typeName() const override { return cAsciiString(classNameOf<Leaf>()); }

    /// Exchanges everything, the histories included.
    void swap(Leaf& other) noexcept { Base::swap(other); }
};

} // namespace nstd
