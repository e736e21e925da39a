#include "nel_core/io/cAbstractIODevice.h"

#include "nel_core/io/cIOExceptions.h"
#include "nel_core/pi/cSysTime.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tArray.h"
#include "nel_core/std/tConstArrayRef.h"

namespace nio {
namespace {

using tBytes = cAbstractIODevice::tBytes;

bool readByte(cAbstractIODevice& device, char& byte)
{
    return device.read(&byte, 1) == 1;
}

// `check` is called after every byte that did not finish the line.
template<typename Check>
void readUpTo(cAbstractIODevice& device, tBytes& line, tBytes const& delimiter, bool keepDelimiter,
              Check&& check)
{
    line.clear();
    for (char byte = 0; readByte(device, byte); check()) {
        line.append(byte);
        if (!line.endsWith(delimiter.data(true), delimiter.length()))
            continue;
        if (!keepDelimiter)
            line.erase(delimiter.length());
        return;
    }
}

void checkTime(nstd::cTime const& start, unsigned int timeoutMs)
{
    if (npi::cSysTime::diffTime(start).toMSec() > timeoutMs)
        cIOExceptions::throwIOTimeout(timeoutMs);
}

void writeWhole(cAbstractIODevice& device, char const* bytes, unsigned int count)
{
    if (device.write(bytes, count) != count)
        cIOExceptions::throwUnableToWrite(count);
}

// A view that fetches its bytes in pieces is copied: the text is to be written at once.
void writeWhole(cAbstractIODevice& device, cAbstractIODevice::tConstBytesRef const& bytes)
{
    unsigned int const count = bytes.length();
    unsigned int const block = bytes.proxyPreferredBlockSize();
    if (block == 0 || count <= block)
        return writeWhole(device, bytes.proxyProvideData(0, count), count);
    tBytes copy(count);
    bytes.proxyCopyPartTo(copy.data(), 0, count);
    writeWhole(device, copy.data(), count);
}

} // namespace

cAbstractIODevice::~cAbstractIODevice() = default;

void cAbstractIODevice::readTextLine(tBytes& line, tBytes const& delimiter, bool keepDelimiter)
{
    readUpTo(*this, line, delimiter, keepDelimiter, [] {});
}

void cAbstractIODevice::readTextLine(tBytes& line, tBytes const& delimiter, bool keepDelimiter,
                                     unsigned int timeoutMs)
{
    nstd::cTime const start;
    readUpTo(*this, line, delimiter, keepDelimiter, [&] { checkTime(start, timeoutMs); });
}

bool cAbstractIODevice::readTextLine(tBytes& line, unsigned int timeoutMs)
{
    nstd::cTime const start;
    line.clear();
    for (char byte = 0; readByte(*this, byte);) {
        bool const isEnd = byte == '\n' || byte == '\r';
        if (isEnd && !line.empty())
            return true;
        if (!isEnd)
            line.append(byte);
        if (timeoutMs != 0)
            checkTime(start, timeoutMs);
    }
    return false;
}

void cAbstractIODevice::writeTextLine(nstd::cAsciiString const& text, nstd::cAsciiString const& lineEnd)
{
    writeWhole(*this, text.data(), text.length());
    writeWhole(*this, lineEnd.data(), lineEnd.length());
}

void cAbstractIODevice::writeTextLine(tConstBytesRef const& text, nstd::cAsciiString const& lineEnd)
{
    writeWhole(*this, text);
    writeWhole(*this, lineEnd.data(), lineEnd.length());
}

} // namespace nio
