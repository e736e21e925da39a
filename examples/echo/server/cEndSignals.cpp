#include "cEndSignals.h"

#include <cerrno>
#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

#include "nel_core/pi/cFDAIOData.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/std/cOSErrorException.h"

namespace {

sigset_t endSignals()
{
    sigset_t set;
    ::sigemptyset(&set);
    ::sigaddset(&set, SIGINT);
    ::sigaddset(&set, SIGTERM);
    return set;
}

int openSignals()
{
    sigset_t const set = endSignals();
    int const fd = ::signalfd(-1, &set, SFD_NONBLOCK | SFD_CLOEXEC);
    if (fd < 0)
        throw nstd::cOSErrorException("signalfd", errno);
    ::sigprocmask(SIG_BLOCK, &set, nullptr);
    return fd;
}

} // namespace

cEndSignals::cEndSignals() : miFd(openSignals())
{
    nstd::tAutoPtr<npi::cFDAIOData> data(new npi::cFDAIOData);
    data->addFd(miFd, npi::tFdInfo::evReadable);
    mWork.setName("end signals");
    mWork.sigAction.connect(nrmi::slot(this, &cEndSignals::sltReadable));
    mWork.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>(data.release()));
    npi::schedule(mWork);
}

cEndSignals::~cEndSignals()
{
    mWork.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>()); // before the descriptor goes
    ::close(miFd);
    sigset_t const set = endSignals();
    ::sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

piVoid cEndSignals::sltReadable()
{
    signalfd_siginfo info;
    while (::read(miFd, &info, sizeof info) == sizeof info)
        mbHasCome = true;
    return piVoid();
}
