#include "nel_core/pi/platform/dependend/native_linux/cLinuxMutexImpl.h"

namespace npi {

cLinuxMutexImpl::cLinuxMutexImpl()
{
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_RECURSIVE);
    pthread_mutex_init(&moMutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

cLinuxMutexImpl::~cLinuxMutexImpl()
{
    pthread_mutex_destroy(&moMutex);
}

void cLinuxMutexImpl::lock()
{
    pthread_mutex_lock(&moMutex);
}

bool cLinuxMutexImpl::tryLock()
{
    return pthread_mutex_trylock(&moMutex) == 0;
}

void cLinuxMutexImpl::unlock()
{
    pthread_mutex_unlock(&moMutex);
}

} // namespace npi
