#include "nel_core/sa/cSerializeDebug.h"

#include "nel_core/pi/cDebugEntry.h"
#include "nel_core/std/cAsciiStringStream.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/tArrayRef.h"
#include "nel_core/ucs/cString.h"

namespace nsa {
namespace {

template<typename T>
void printNumber(cSerializeDebug& target, char const* type, T value)
{
    nstd::cAsciiString line(type);
    target.storeDataLine(line << " = " << value, true);
}

void printText(cSerializeDebug& target, char const* type, nstd::cAsciiString const& value)
{
    nstd::cAsciiString line(type);
    target.storeDataLine(line << " = \"" << value << "\"", true);
}

} // namespace

cSerializeDebug::cSerializeDebug() = default;
cSerializeDebug::~cSerializeDebug() = default;

void cSerializeDebug::storeBlock(char const*, unsigned int size)
{
    nstd::cAsciiString line("<raw bytes of size ");
    storeDataLine(line << size << ">", true);
}

void cSerializeDebug::store(unsigned char value)
{
    printNumber(*this, "piUChar", static_cast<unsigned int>(value));
}

void cSerializeDebug::store(signed char value)
{
    printNumber(*this, "piChar", static_cast<int>(value));
}

void cSerializeDebug::store(unsigned short value)
{
    printNumber(*this, "piUInt16", static_cast<unsigned int>(value));
}

void cSerializeDebug::store(short value)
{
    printNumber(*this, "piInt16", static_cast<int>(value));
}

void cSerializeDebug::store(unsigned int value)
{
    printNumber(*this, "piUInt32", value);
}

void cSerializeDebug::store(int value)
{
    printNumber(*this, "piInt32", value);
}

void cSerializeDebug::store(unsigned long long value)
{
    printNumber(*this, "piUInt64", value);
}

void cSerializeDebug::store(long long value)
{
    printNumber(*this, "piInt64", value);
}

void cSerializeDebug::store(bool value)
{
    storeDataLine(value ? "piBool = true" : "piBool = false", true);
}

void cSerializeDebug::store(double)
{
    storeDataLine("piDoubleID = x.y", true);
}

void cSerializeDebug::store(nstd::cAsciiString const& value)
{
    printText(*this, "cAsciiString", value);
}

void cSerializeDebug::store(nucs::cString const& value)
{
    printText(*this, "cString", value.ascii('?'));
}

void cSerializeDebug::rewind()
{
    cSTDExceptions::throwUnsupportedOperation("cSerializeDebug::rewind()");
}

void cSerializeDebug::clear()
{
    cSTDExceptions::throwUnsupportedOperation("cSerializeDebug::clear()");
}

cContextRef cSerializeDebug::newContext(char const* typeName)
{
    cContextRef opened(new cDummyContextData(*this));
    nstd::cAsciiString line("<context ");
    if (typeName)
        line << "\"" << typeName << "\"";
    else
        line << "(unnamed)";
    storeDataLine(line << ">", false);
    storeDataLine("  {", false);
    ++miDepth;
    return opened;
}

void cSerializeDebug::releaseCurrentContext()
{
    if (miDepth > 0)
        --miDepth;
    storeDataLine("  }", false);
}

cAbstractSerializer& cSerializeDebug::newLabel(nstd::cAsciiString const& name)
{
    msLabel = name;
    return *this;
}

nstd::tArrayRef<char, nstd::tArrayByteLevelTraits<char>> cSerializeDebug::data()
{
    cSTDExceptions::throwUnsupportedOperation("cSerializeDebug::data()");
}

void cSerializeDebug::swapData(nstd::tArray<char, nstd::tArrayByteLevelTraits<char>>&)
{
    cSTDExceptions::throwUnsupportedOperation("cSerializeDebug::swapData()");
}

void cSerializeDebug::storeDataLine(nstd::cAsciiString const& text, bool semicolon)
{
    nstd::cAsciiString line;
    for (unsigned int i = 0; i < miDepth; ++i)
        line += "    ";
    if (!msLabel.empty())
        line << "<label " << msLabel << "> ";
    line << text << (semicolon ? ";" : "");
    msLabel.clear();
    npi::cDebugEntry(NEL_SOURCE_TAG, __LINE__) << line;
}

} // namespace nsa

cDummyContextData::cDummyContextData(nsa::cAbstractSerializer& serializer) noexcept
    : mpSerializer(&serializer)
{
}

cDummyContextData::~cDummyContextData()
{
    if (!mbReleased)
        return;
    try {
        mpSerializer->releaseCurrentContext();
    } catch (...) {
        return; // no memory for the closing line; the context is closed all the same
    }
}

void cDummyContextData::release()
{
    mbReleased = true;
}
