#pragma once

#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/tExceptionLeaf.h"
#include "nel_core/ucs/cString.h"

namespace ncs {

/// A module could not be loaded.
class NEL_EXPORT cModuleLoadException
    : public nstd::tExceptionLeaf<cModuleLoadException, nstd::cRuntimeException> {
public:
    enum KindOfProblem : unsigned int {
        kpNotLoaded = 0,     ///< the file is no shared object that can be loaded here
        kpNoInstance = 1,    ///< the module does not make what was asked for
        kpInvalidModule = 2, ///< the shared object is no module
    };

    cModuleLoadException(KindOfProblem problem, nucs::cString const& fileName, nucs::cLIMessage message);
    cModuleLoadException(cModuleLoadException const&) = default;
    cModuleLoadException(cModuleLoadException&&) = default;
    ~cModuleLoadException() override;
    cModuleLoadException& operator=(cModuleLoadException other) noexcept;
    void swap(cModuleLoadException& other) noexcept;

    KindOfProblem problem() const { return meProblem; }
    /// The file as it was named to the class loader.
    nucs::cString const& fileName() const { return msFileName; }

private:
    KindOfProblem meProblem;
    nucs::cString msFileName;
};

} // namespace ncs
