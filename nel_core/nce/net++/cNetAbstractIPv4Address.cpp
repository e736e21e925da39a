#include "nel_core/nce/net++/cNetAbstractIPv4Address.h"

#include "nel_core/nce/net++/cNETExceptions.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiStringTokenizer.h"
#include "nel_core/std/cNumberConversion.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cString.h"

namespace nce {
namespace {

using nstd::cAsciiString;
using nstd::makeMessage;
using nstd::raiseRuntime;

constexpr unsigned int kParts = 4;
constexpr unsigned int kPortKey = 1;
constexpr unsigned int kMaxDigits = 10;
constexpr unsigned int kMaxPart = 255;
constexpr unsigned int kMaxPort = 65535;
constexpr char const* kPartRange = "$MTR$IP number part (%number%) is not in range of 0..255!";
constexpr char const* kPortRange = "$MTR$Given port number (%number%) is not in range of 0..65535";

struct cParsed {
    unsigned int bytes = 0; ///< the first one in the lowest bits
    unsigned int port = 0;
};

nstd::cNumberConversionFormat decimal()
{
    nstd::cNumberConversionFormat format(10);
    format.setBaseDetectionEnabled(false);
    format.setIgnoreLeadingSpaces(false);
    return format;
}

// The number that the next token tells. A long one is out of range whatever it tells, as it could wrap.
unsigned int readNumber(nstd::cAsciiStringTokenizer& tokenizer, unsigned int max, char const* emptyText,
                        char const* rangeText)
{
    cAsciiString token;
    tokenizer >> token;
    if (token.empty())
        raiseRuntime(makeMessage(emptyText));
    if (token.length() > kMaxDigits)
        raiseRuntime(makeMessage(rangeText, token));
    bool isSigned = false;
    unsigned int const sign = token.find('-', isSigned);
    if (isSigned)
        cSTDExceptions::throwInvalidDecimal(nucs::cString(token, '?'), sign);
    auto const number = nstd::cNumberConversion::fromString(token, decimal());
    if (number > max)
        raiseRuntime(makeMessage(rangeText, number));
    return static_cast<unsigned int>(number);
}

cParsed parse(cAsciiString const& text)
{
    nstd::cAsciiStringTokenizer tokenizer(text);
    tokenizer.context().addSeparator(".");
    tokenizer.context().addKey(":", kPortKey);

    cParsed parsed;
    for (unsigned int i = 0; i < kParts; ++i)
        parsed.bytes |=
            readNumber(tokenizer, kMaxPart, "$MTR$Expecting an unsigned decimal number!", kPartRange)
            << (8 * i);

    cAsciiString token;
    unsigned int key = 0;
    if (tokenizer.getNextToken(token, key) && key == kPortKey)
        parsed.port = readNumber(tokenizer, kMaxPort, "$MTR$Expecting port number!", kPortRange);
    return parsed;
}

} // namespace

cNetAbstractIPv4Address::~cNetAbstractIPv4Address() = default;

cAsciiString cNetAbstractIPv4Address::addrType() const
{
    return "TcpIpv4";
}

void cNetAbstractIPv4Address::fromString(cAsciiString const& text)
{
    cParsed parsed;
    try {
        parsed = parse(text);
    } catch (nstd::cAbstractException const& cause) {
        cNETExceptions::throwInvalidAddress(cause);
    }
    setIPv4(parsed.bytes, parsed.port);
}

cAsciiString cNetAbstractIPv4Address::toString() const
{
    return toString(false);
}

cAsciiString cNetAbstractIPv4Address::toString(bool withPort) const
{
    unsigned char bytes[kParts] = {};
    unsigned int port = 0;
    getIPv4(bytes, port);

    auto const format = decimal();
    cAsciiString text;
    for (unsigned int i = 0; i < kParts; ++i) {
        if (i != 0)
            text += '.';
        text.addUNum32(bytes[i], format);
    }
    if (withPort) {
        text += ':';
        text.addUNum32(port, format);
    }
    return text;
}

} // namespace nce
