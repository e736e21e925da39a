#include "nel_core/ncs/cModuleLoadException.h"

#include <utility>

namespace ncs {

cModuleLoadException::cModuleLoadException(KindOfProblem problem, nucs::cString const& fileName,
                                           nucs::cLIMessage message)
    : tExceptionLeaf(std::move(message)),
      meProblem(problem),
      msFileName(fileName)
{
}

cModuleLoadException::~cModuleLoadException() = default;

cModuleLoadException& cModuleLoadException::operator=(cModuleLoadException other) noexcept
{
    swap(other);
    return *this;
}

void cModuleLoadException::swap(cModuleLoadException& other) noexcept
{
    cRuntimeException::swap(other);
    std::swap(meProblem, other.meProblem);
    msFileName.swap(other.msFileName);
}

} // namespace ncs
