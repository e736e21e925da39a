#include "nel_core/np/cAbstractProcess.h"

#include "nel_core/np/cBasicProcessData.h"

namespace np {

cAbstractProcess::cAbstractProcess() : mpOwnData(new cBasicProcessData), mpData(mpOwnData.get()) { }

cAbstractProcess::cAbstractProcess(cAbstractProcessData& data) : mpData(&data) { }

cAbstractProcess::~cAbstractProcess()
{
    mpData->setContext(ctxUnbound, nullptr, nullptr);
}

bool cAbstractProcess::isRunning() const
{
    return mpData->isRunning();
}

bool cAbstractProcess::isFinished() const
{
    return mpData->isFinished();
}

} // namespace np
