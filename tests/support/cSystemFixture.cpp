#include "tests/support/cSystemFixture.h"

#include "nel_core/pi/cSystem.h"

namespace ntest {

void cSystemFixture::SetUp()
{
    npi::cSystem::cleanup();
    npi::system();
}

void cSystemFixture::TearDown()
{
    npi::cSystem::cleanup();
}

} // namespace ntest
