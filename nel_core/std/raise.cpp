#include "nel_core/std/raise.h"

#include <utility>

#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/pi/piStackTrace.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"

namespace nstd {
namespace {

constexpr unsigned int kTraceDepth = 128;

// An output that fails while it takes a trace is not asked for the trace of that failure too.
__attribute__((tls_model("initial-exec"))) thread_local bool tbIsTracing = false;

} // namespace

void raiseBug(nucs::cLIMessage message)
{
    throw cBugException(std::move(message));
}

void raiseRuntime(nucs::cLIMessage message)
{
    throw cRuntimeException(std::move(message));
}

void raiseRuntime(nucs::cLIMessage message, cAbstractException const& cause)
{
    cRuntimeException error(std::move(message));
    error.link(cause);
    throw error; // moved: the chain is not copied again
}

void writeStackTrace(char const* tag, unsigned int line) noexcept
{
    if (std::exchange(tbIsTracing, true))
        return;
    try {
        auto const trace = piStackTrace(kTraceDepth);
        npi::cDebugEntry(tag, line) << trace;
    } catch (...) {
        // the failure that the trace belongs to counts more
    }
    tbIsTracing = false;
}

} // namespace nstd
