#include "nel_core/ncs/cComponentAddr.h"

#include <utility>

#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cAsciiStringTokenizer.h"
#include "nel_core/std/cNumberConversion.h"
#include "nel_core/std/cNumberConversionFormat.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/raise.h"

namespace ncs {
namespace {

cComponentAddr parse(nstd::cAsciiString const& text)
{
    constexpr unsigned int kColon = 1;
    nstd::cAsciiStringTokenizer tokenizer(text);
    tokenizer.context().addKey(":", kColon);

    nstd::cAsciiStringTokenizer::tView queue, colon, module;
    unsigned int id = 0;
    tokenizer.getNext(queue);
    tokenizer.getNext(colon, id);
    if (id != kColon)
        nstd::raiseRuntime(nstd::makeMessage("$MTR$Expecting \":\"!"));
    tokenizer.getNext(module);

    nstd::cNumberConversionFormat const decimal(10);
    auto const numberOf = [&](auto const& digits) {
        return static_cast<unsigned int>(nstd::cNumberConversion::fromString(digits, decimal));
    };
    auto const queueID = numberOf(queue);
    return cComponentAddr(queueID, numberOf(module));
}

} // namespace

cComponentAddr::cComponentAddr(nstd::cAsciiString const& text)
{
    fromString(text);
}

void cComponentAddr::swap(cComponentAddr& other) noexcept
{
    std::swap(*this, other);
}

nstd::cAsciiString cComponentAddr::toString() const
{
    nstd::cNumberConversionFormat const decimal(10);
    nstd::cAsciiString text;
    text.addUNum32(miQueueID, decimal);
    text += ':';
    text.addUNum32(miModuleID, decimal);
    return text;
}

void cComponentAddr::fromString(nstd::cAsciiString const& text)
{
    try {
        *this = parse(text);
    } catch (nstd::cAbstractException const& cause) {
        nstd::raiseRuntime(nstd::makeMessage("$MTR$Malformed component address (\"%addr%\")!", text), cause);
    }
}

nsa::cAbstractSerializer& cComponentAddr::operator>>(nsa::cAbstractSerializer& serializer) const
{
    bool const labels = !serializer.noLabelsPreferred();
    if (labels)
        serializer.newLabel("ID");
    miModuleID >> serializer;
    if (labels)
        serializer.newLabel("Queue");
    return miQueueID >> serializer;
}

nsa::cAbstractDeserializer& cComponentAddr::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    bool const labels = !deserializer.noLabelsPreferred();
    unsigned int moduleID = 0;
    unsigned int queueID = 0;
    if (labels)
        deserializer.findLabel("ID");
    moduleID << deserializer;
    if (labels)
        deserializer.findLabel("Queue");
    queueID << deserializer;
    *this = cComponentAddr(queueID, moduleID);
    return deserializer;
}

} // namespace ncs
