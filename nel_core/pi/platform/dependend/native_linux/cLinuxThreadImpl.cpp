#include "nel_core/pi/platform/dependend/native_linux/cLinuxThreadImpl.h"

#include "nel_core/std/cOSErrorException.h"

namespace npi {

cLinuxThreadImpl::cLinuxThreadImpl(void (*function)(void*), void* argument)
    : mpFunction(function),
      mpArgument(argument),
      moThread()
{
}

cLinuxThreadImpl::~cLinuxThreadImpl()
{
    cLinuxThreadImpl::stop();
}

void cLinuxThreadImpl::start()
{
    stop();
    int const result = pthread_create(&moThread, nullptr, &cLinuxThreadImpl::trampoline, this);
    if (result != 0)
        throw nstd::cOSErrorException("pthread_create", result, "Unable to create thread!");
    mbStarted = true;
}

void cLinuxThreadImpl::stop()
{
    if (mbStarted)
        pthread_join(moThread, nullptr);
    mbStarted = false;
}

void* cLinuxThreadImpl::trampoline(void* self)
{
    auto const& thread = *static_cast<cLinuxThreadImpl const*>(self);
    thread.mpFunction(thread.mpArgument);
    return nullptr;
}

} // namespace npi
