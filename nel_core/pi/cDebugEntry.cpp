#include "nel_core/pi/cDebugEntry.h"

#include "nel_core/pi/cDebugStdErr.h"
#include "nel_core/pi/cSystem.h"
#include "nel_core/pi/cSystemState.h"

namespace npi {
namespace {

// Where entries go that have no system. Never destroyed: entries may come from the last static destructor.
cAbstractOut& unfilteredStdErr()
{
    static auto* const out = new cDebugStdErr(nullptr);
    return *out;
}

// Makes it when the library is loaded: later the memory for it may be what an entry has to tell about.
[[maybe_unused]] auto const& gMadeAtLoad = unfilteredStdErr();

// A diagnostic must not become a failure.
template<typename T>
void writeIfPossible(cAbstractOut& out, T const& value) noexcept
try {
    out << value;
} catch (...) {
    return;
}

void buildSystem() noexcept
try {
    system();
} catch (...) {
    return; // the entry goes to standard error
}

cAbstractOut& entryOut()
{
    if (systemState() == SystemState::none)
        buildSystem();
    auto* const out = systemDebugOutput();
    return out ? *out : unfilteredStdErr();
}

} // namespace

cDebugEntry::cDebugEntry(char const* tag, unsigned int line) : mOut(entryOut()), mLock(mOut.mutex())
{
    mOut.debugMessage(tag, line);
}

cDebugEntry::~cDebugEntry()
{
    writeIfPossible(mOut, "\n");
    writeIfPossible(mOut, cAbstractOut::clearDebugMessage());
}

} // namespace npi
