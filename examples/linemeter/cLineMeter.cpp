#include "cLineMeter.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

#include "nel_core/io/cIOExceptions.h"
#include "nel_core/pi/cFDAIOData.h"
#include "nel_core/pi/cWorkQueue.h"
#include "nel_core/std/cOSErrorException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cLIMessage.h"
#include "report.h"

namespace {

constexpr unsigned int kBufferSize = 256 * 1024;
constexpr unsigned int kProgressInterval = 250; // milliseconds
constexpr unsigned int kFaultInterval = 20;     // milliseconds

[[noreturn]] void failOnPurpose()
{
    nucs::cLIMessage cause;
    cause << "$MTR$The gauge \"%name%\" does not answer!"
          << "demonstration";
    nucs::cLIMessage message;
    message << "$MTR$Unable to read gauge number %number%!" << 7;
    nstd::cRuntimeException error(message, nullptr, 0);
    error.link(nstd::cRuntimeException(cause, nullptr, 0));
    throw error;
}

} // namespace

cLineMeter::cLineMeter(int fd, bool isFailing) : cLineMeter(isFailing)
{
    miFd = fd;
    miFlags = ::fcntl(fd, F_GETFL);
    if (miFlags != -1)
        ::fcntl(fd, F_SETFL, miFlags | O_NONBLOCK);

    mInput.sigAction.connect(nrmi::slot(this, &cLineMeter::sltReadable));
    mInput.sigActionError().connect(nrmi::slot(this, &cLineMeter::sltInputError));
    auto* const descriptors = new npi::cFDAIOData;
    nstd::tAutoPtr<npi::cAbstractAIOData> data(descriptors);
    descriptors->addFd(fd, npi::tFdInfo::evReadable);
    mInput.setAIOData(data);
}

cLineMeter::cLineMeter(nstd::tArray<char const*> const& files, bool isFailing) : cLineMeter(isFailing)
{
    maFiles = files;
    mInput.sigAction.connect(nrmi::slot(this, &cLineMeter::sltFiles));
    mInput.start(0, npi::cWork::Periodic);
}

cLineMeter::cLineMeter(bool isFailing) : maBuffer(kBufferSize)
{
    mInput.setName("input");
    npi::schedule(mInput);

    mProgress.setName("progress");
    mProgress.sigAction.connect(nrmi::slot(this, &cLineMeter::sltProgress));
    mProgress.start(kProgressInterval, npi::cWork::Periodic);
    npi::schedule(mProgress);

    mFaulty.setName("faulty");
    mFaulty.sigAction.connect(nrmi::slot(this, &cLineMeter::sltFaulty));
    mFaulty.sigActionError().connect(nrmi::slot(this, &cLineMeter::sltFaultyError));
    if (isFailing)
        mFaulty.start(kFaultInterval, npi::cWork::Periodic);
    npi::schedule(mFaulty);
}

cLineMeter::~cLineMeter()
{
    if (miFlags != -1)
        ::fcntl(miFd, F_SETFL, miFlags);
}

piVoid cLineMeter::sltReadable()
{
    ssize_t const count = ::read(miFd, maBuffer.data(), maBuffer.length());
    if (count > 0)
        mCounter.add(maBuffer.data(), static_cast<unsigned int>(count));
    else if (count == 0)
        endInput();
    else if (errno != EAGAIN && errno != EINTR)
        throw nstd::cOSErrorException("read", errno);
    return piVoid();
}

// The queue stops a work that fails several times in a row, and files may do so.
piVoid cLineMeter::sltFiles()
{
    try {
        if (readFile())
            return piVoid();
    } catch (nstd::cAbstractException const& error) {
        reportLine("linemeter: ", error);
        mbFailed = true;
    }
    endFile();
    return piVoid();
}

piVoid cLineMeter::sltProgress()
{
    if (mCounter.bytes() != miReported)
        std::fprintf(stderr, "%llu lines, %llu bytes...\n", mCounter.lines(), mCounter.bytes());
    miReported = mCounter.bytes();
    return piVoid();
}

piVoid cLineMeter::sltFaulty()
{
    failOnPurpose();
}

piVoid cLineMeter::sltInputError(nstd::cAbstractException const& error, bool)
{
    report("linemeter: ", error);
    mbFailed = true;
    endInput();
    return piVoid();
}

piVoid cLineMeter::sltFaultyError(nstd::cAbstractException const& error, bool)
{
    report("the action-error handler has taken: ", error);
    return piVoid();
}

// Counts one piece; false at the end of the file.
bool cLineMeter::readFile()
{
    if (!mpFile)
        mpFile.reset(new nio::cFile(maFiles[miNextFile], nio::omRead, nio::cmMustExist, nio::wmOverwrite),
                     nstd::tAutoPtrType::ptObject);
    try {
        auto const count = static_cast<unsigned int>(mpFile->read(maBuffer.data(), maBuffer.length()));
        mCounter.add(maBuffer.data(), count);
        return count != 0;
    } catch (nstd::cOSErrorException const& cause) {
        nio::cIOExceptions::throwUnableReadFile(cause, mpFile->name());
    }
}

void cLineMeter::endFile()
{
    mpFile.reset(nullptr, nstd::tAutoPtrType::ptObject);
    mCounter.finish();
    if (++miNextFile < maFiles.length())
        return;
    mbInputEnded = true;
    mInput.stop();
}

void cLineMeter::endInput()
{
    mCounter.finish();
    mbInputEnded = true;
    mInput.setAIOData(nstd::tAutoPtr<npi::cAbstractAIOData>());
}
