#pragma once

namespace ntest {

/// Moves the wall clock of the process while it lives: gettimeofday() tells the true time plus a shift.
class cFakeClock {
public:
    cFakeClock() = default;
    cFakeClock(cFakeClock const&) = delete;
    cFakeClock& operator=(cFakeClock const&) = delete;
    /// The clock is right again.
    ~cFakeClock();

    /// Moves the clock forward, or back for a negative number.
    void advance(long long milliseconds);
};

} // namespace ntest
