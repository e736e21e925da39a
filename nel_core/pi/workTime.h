#pragma once

#include "nel_core/std/cTime.h"

namespace npi {

/// The whole milliseconds from `now` until `planned`, 0 when that has passed. Internal to the work queue.
constexpr long long millisecondsUntil(nstd::cTime const& planned, nstd::cTime const& now)
{
    return planned > now ? static_cast<long long>((planned.get() - now.get()) / 1000) : 0;
}

} // namespace npi
