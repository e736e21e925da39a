#include "nel_core/rmi/typeNames.h"

namespace nrmi {

nstd::cAsciiString joinTypeNames(char const* const* names, unsigned int count)
{
    nstd::cAsciiString joined;
    for (unsigned int i = 0; i < count; ++i) {
        if (i != 0)
            joined += ", ";
        joined += names[i];
    }
    return joined;
}

} // namespace nrmi
