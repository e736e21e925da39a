#include <stdexcept>

#include "nel_core/ncs/cAbstractPlugIn.h"
#include "nel_core/ncs/moduleEntry.h"

struct cOwnError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

[[maybe_unused]] static int const kNever = (throw cOwnError("static"), 0);

NEL_MODULE_PLUGIN(ncs::cAbstractPlugIn)
NEL_MODULE_VERSION(1, 0)
