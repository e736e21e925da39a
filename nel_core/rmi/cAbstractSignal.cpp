#include "nel_core/rmi/cAbstractSignal.h"

#include <utility>

#include "nel_core/std/cAsciiString.h"

namespace nrmi {

cAbstractSignal::~cAbstractSignal() = default;

void cAbstractSignal::swap(cAbstractSignal& other) noexcept
{
    std::swap(meInvocationBehavior, other.meInvocationBehavior);
}

nstd::cAsciiString cAbstractSignal::parametersTypeString() const
{
    return nstd::cAsciiString();
}

nstd::cAsciiString cAbstractSignal::returnTypeString() const
{
    return nstd::cAsciiString();
}

} // namespace nrmi
