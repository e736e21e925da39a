#include "nel_core/std/cAbstractTokenSpec.h"

#include <atomic>

namespace nstd {

cAbstractTokenSpec::~cAbstractTokenSpec() = default;

void cAbstractTokenSpec::hint()
{
    ++miHints;
    if (mpLeaveCounter != nullptr)
        ++*mpLeaveCounter;
}

unsigned long long cAbstractTokenSpec::newTextStamp()
{
    static std::atomic<unsigned long long> last{0};
    return ++last;
}

} // namespace nstd
