#pragma once

#include <new>
#include <string>

#include <gtest/gtest.h>

#include "nel_core/std/cAbstractException.h"

namespace ntest {

/// While it lives, lets one request for memory of its thread fail, or that one and all later ones. One at a
/// time in a thread; do not make assertions meanwhile, they need memory themselves.
///
/// Requests are malloc(), calloc(), realloc() and operator new, in the test program and in every library. One
/// that fails gives null or raises std::bad_alloc, as it must. ThreadSanitizer does not let a request fail: a
/// test that finds isAvailable() false skips itself.
///
///     auto const refusals = ntest::failEachRequest([&] { array.append('x'); }, [&] { checkThat(array); });
class cFailingMemory {
public:
    enum Mode : unsigned int {
        moOnce = 0,     ///< only that request fails
        moShortage = 1, ///< that request and all after it fail
    };

    /// Whether requests can be made to fail in this build.
    static bool isAvailable();

    /// Counts from now on; request number `n`, beginning with 1, is the one that fails.
    explicit cFailingMemory(unsigned int n, Mode mode = moOnce);
    /// Requests succeed again.
    ~cFailingMemory();
    cFailingMemory(cFailingMemory const&) = delete;
    cFailingMemory& operator=(cFailingMemory const&) = delete;

    /// Whether request number `n` has come.
    bool hasFailed() const;

    /// How much memory the process holds: blocks, or bytes under a sanitizer. Made to be compared with what
    /// it was before.
    static long long inUse();
};

/// Calls `step` with its first, second, third ... request for memory failing, until a call needs no more of
/// them; gives the number of calls in which one failed. `step` may let std::bad_alloc and the framework's
/// exceptions escape, nothing else. After each call, with memory for all, `check` looks at what is left.
template<typename Step, typename Check>
unsigned int failEachRequest(Step&& step, Check&& check, cFailingMemory::Mode mode = cFailingMemory::moOnce)
{
    for (unsigned int n = 1; n < 100000; ++n) {
        bool hasFailed = false;
        bool isForeign = false;
        {
            cFailingMemory const memory(n, mode);
            try {
                step();
            } catch (std::bad_alloc const&) {
            } catch (nstd::cAbstractException const&) {
            } catch (...) {
                isForeign = true;
            }
            hasFailed = memory.hasFailed();
        }
        check();
        EXPECT_FALSE(isForeign) << "an exception that is none of the framework's";
        if (testing::Test::HasFailure()) {
            ADD_FAILURE() << "with memory refused at request " << n;
            return n;
        }
        if (!hasFailed)
            return n - 1;
    }
    ADD_FAILURE() << "there is no end of requests";
    return 0;
}

} // namespace ntest
