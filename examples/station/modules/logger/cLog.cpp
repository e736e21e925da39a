#include "cLog.h"

#include <cstdio>
#include <utility>

#include "interfaces/logLine.h"
#include "nel_core/rmi/publicSlotCall.h"

cLog::cLog(nstd::tAutoPtr<nucs::cAbstractEnDec> codec)
    : cAbstractInterface(
        ncs::cInterfaceDesc(ncs::cInterfaceDesc::itProvided, kLogInterface, "station", 1, "writes lines")),
      mpCodec(std::move(codec))
{
    nrmi::publishSlot(this, "log", &cLog::sltLog, "writes a line, returns the number of its bytes");
}

cLog::~cLog() = default;

void cLog::connectInterface(ncs::cAbstractInterface&) { }

void cLog::disconnectInterface() { }

unsigned int cLog::sltLog(nucs::cString const& line)
{
    nstd::tArray<char> bytes;
    mpCodec->encode(line, bytes);
    std::fputs("log: ", stdout);
    for (char const c : bytes) {
        if (nstd::cAsciiString::isPrintable(c))
            std::fputc(c, stdout);
        else
            std::printf("\\x%02x", static_cast<unsigned int>(static_cast<unsigned char>(c)));
    }
    std::printf(" (%u bytes)\n", bytes.length());
    return bytes.length();
}
