#include "nel_core/np/cAbstractPollable.h"

#include "nel_core/np/cAbstractProcessData.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/ucs/cLIMessage.h"

namespace np {
namespace {

// Checked before the base class exists: its destructor would unbind the data from its process.
cAbstractProcessData& unbound(cAbstractProcessData& data)
{
    if (data.context() != cAbstractProcess::ctxUnbound) {
        nucs::cLIMessage message;
        message << "$MTR$Never use process data for more than one process!";
        throw nstd::cBugException(message);
    }
    return data;
}

} // namespace

cAbstractPollable::cAbstractPollable(cAbstractProcessData& data) : cAbstractProcess(unbound(data))
{
    data.setContext(ctxPollable, nullptr, nullptr);
}

cAbstractPollable::~cAbstractPollable() = default;

cAbstractPollable* cAbstractPollable::isPollable()
{
    return this;
}

cAbstractRunnable* cAbstractPollable::isRunnable()
{
    return nullptr;
}

void cAbstractPollable::interrupt(bool) { }

} // namespace np
