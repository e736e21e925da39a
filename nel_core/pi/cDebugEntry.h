#pragma once

#include <new>

#include "nel_core/export.h"
#include "nel_core/np/cLocker.h"
#include "nel_core/pi/cAbstractOut.h"

namespace npi {

/// One entry of the debug output, written while it lives.
///
/// The constructor takes the output's lock and sets the source position; what is streamed in between is the
/// text; the destructor ends the line, clears the position and releases the lock. This is the only way in
/// which the library writes diagnostics:
///
///     npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << "Work scheduled without name!";
///
/// A living system's debug output is used, and where there is no system one is made. While the system is
/// being built, or once its debug output is gone, the entry goes straight to standard error, unfiltered.
/// Raises nothing from its destructor.
class NEL_EXPORT cDebugEntry {
public:
    /// `tag` is the source tag (NEL_SOURCE_TAG) and must outlive the entry.
    cDebugEntry(char const* tag, unsigned int line);
    ~cDebugEntry();
    cDebugEntry(cDebugEntry const&) = delete;
    cDebugEntry& operator=(cDebugEntry const&) = delete;

    /// Writes one value with the output's own operator, as far as the memory reaches: a diagnostic must not
    /// hide the failure of which it tells.
    template<typename T>
    cDebugEntry& operator<<(T const& value)
    {
        try {
            mOut << value;
        } catch (std::bad_alloc const&) {
            return *this;
        }
        return *this;
    }

private:
    cAbstractOut& mOut;
    np::cLocker::cLock mLock;
};

} // namespace npi
