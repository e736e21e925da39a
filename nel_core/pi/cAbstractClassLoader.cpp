#include "nel_core/pi/cAbstractClassLoader.h"

namespace npi {

cAbstractClassLoader::cAbstractClassLoader(nucs::cString const& fileName) : msLibFileName(fileName) { }

cAbstractClassLoader::~cAbstractClassLoader() = default;

} // namespace npi
