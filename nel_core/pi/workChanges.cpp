#include "nel_core/pi/workChanges.h"

namespace npi {
namespace {

__attribute__((tls_model("initial-exec"))) thread_local unsigned long long tiChanges = 1;

} // namespace

unsigned long long workChanges() noexcept
{
    return tiChanges;
}

void noteWorkChange() noexcept
{
    ++tiChanges;
}

} // namespace npi
