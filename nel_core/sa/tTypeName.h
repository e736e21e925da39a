#pragma once

#include <typeinfo>

#include "nel_core/sa/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/piTypes.h"
#include "nel_core/ucs/fwd.h"

namespace nsa {

/// The compiler's own name of a type, the same as typeid(T).name(). T may be incomplete.
template<typename T>
char const* mangledTypeName()
{
    return typeid(T*).name() + 1; // behind the "P" that makes it a pointer
}

/// The name under which the values of a type are known to both ends of a call: the stored form's name for
/// the fundamental types and the strings, otherwise what NEL_TYPE_NAME gave it, and at last the compiler's
/// own name.
template<typename T>
struct tTypeName {
    static char const* name() { return mangledTypeName<T>(); }
};

} // namespace nsa

/// Names a type for tTypeName. Stands at global scope, behind the type's declaration.
#define NEL_TYPE_NAME(type, text)                                                                            \
    template<>                                                                                               \
    struct nsa::tTypeName<type> {                                                                            \
        static char const* name() { return text; }                                                           \
    };

NEL_TYPE_NAME(unsigned char, "piUChar")
NEL_TYPE_NAME(signed char, "piChar")
NEL_TYPE_NAME(char, "piChar")
NEL_TYPE_NAME(unsigned short, "piUInt16")
NEL_TYPE_NAME(short, "piInt16")
NEL_TYPE_NAME(unsigned int, "piUInt32")
NEL_TYPE_NAME(int, "piInt32")
NEL_TYPE_NAME(unsigned long long, "piUInt64")
NEL_TYPE_NAME(long long, "piInt64")
NEL_TYPE_NAME(bool, "piBool")
NEL_TYPE_NAME(double, "piDouble")
NEL_TYPE_NAME(piVoid, "piVoid")
NEL_TYPE_NAME(nstd::cAsciiString, "cAsciiString")
NEL_TYPE_NAME(nucs::cString, "cString")
NEL_TYPE_NAME(nsa::cReferenceFrame, "cReferenceFrame")
