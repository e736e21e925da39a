#include "cRecordReader.h"

#include "nel_core/io/cFile.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cLIMessage.h"

cRecordReader::cRecordReader()
{
    mWork.setName("record reader");
    mWork.sigAction.connect(nrmi::slot(this, &cRecordReader::sltRead));
    mWork.sigActionError().connect(nrmi::slot(this, &cRecordReader::sltError));
    npi::schedule(mWork);
    mWork.start(0, npi::cWork::SingleTask);
}

piVoid cRecordReader::sltRead()
{
    try {
        nio::cFile("missing-record.txt", nio::omRead, nio::cmMustExist, nio::wmOverwrite);
    } catch (nstd::cAbstractException const& cause) {
        nucs::cLIMessage message;
        message << "$MTR$The record about \"%subject%\" cannot be read!"
                << "Atlantis";
        nstd::cRuntimeException error(message);
        error.link(cause);
        throw error;
    }
    return piVoid();
}

piVoid cRecordReader::sltError(nstd::cAbstractException const& error, bool)
{
    mpError = nstd::tAutoPtr<nstd::cAbstractException>(error.createObject());
    return piVoid();
}
