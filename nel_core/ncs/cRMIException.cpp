#include "nel_core/ncs/cRMIException.h"

#include <utility>

#include "nel_core/sa/saOperators.h"
#include "nel_core/std/raise.h"

namespace ncs {
namespace {

using nstd::makeMessage;

nucs::cLIMessage messageWithKey(cRMIException::Operation operation, nstd::cAsciiString const& name,
                                unsigned int key)
{
    if (operation == cRMIException::opCallSlot)
        return makeMessage("$MTR$Unable to call slot \"%slot%\" on interface key %key%!", name, key);
    if (operation == cRMIException::opConnectSignal)
        return makeMessage("$MTR$Unable to connect signal \"%signal%\" to interface key %key%!", name, key);
    return nucs::cLIMessage();
}

nucs::cLIMessage messageWithIndex(cRMIException::Operation operation, nstd::cAsciiString const& name,
                                  unsigned int index)
{
    if (operation == cRMIException::opCallSlot)
        return makeMessage("$MTR$Unable to call slot \"%slot%\" on interface %idx%!", name, index);
    if (operation == cRMIException::opConnectSignal)
        return makeMessage("$MTR$Unable to connect signal \"%signal%\" to interface %idx%!", name, index);
    return nucs::cLIMessage();
}

} // namespace

cRMIException::cRMIException() = default;

cRMIException::cRMIException(unsigned int key, Operation operation, nstd::cAsciiString const& name)
    : tExceptionLeaf(messageWithKey(operation, name, key)),
      miInterfaceKey(key),
      meOperation(operation),
      msSignalSlotName(name)
{
}

cRMIException::cRMIException(cComponentLocation const& location, unsigned int index, Operation operation,
                             nstd::cAsciiString const& name)
    : tExceptionLeaf(messageWithIndex(operation, name, index)),
      mLocation(location),
      miInterfaceIndex(index),
      meOperation(operation),
      msSignalSlotName(name)
{
}

cRMIException::~cRMIException() = default;

cRMIException& cRMIException::operator=(cRMIException other) noexcept
{
    swap(other);
    return *this;
}

void cRMIException::swap(cRMIException& other) noexcept
{
    cRuntimeException::swap(other);
    mLocation.swap(other.mLocation);
    std::swap(miInterfaceIndex, other.miInterfaceIndex);
    std::swap(miInterfaceKey, other.miInterfaceKey);
    std::swap(meOperation, other.meOperation);
    msSignalSlotName.swap(other.msSignalSlotName);
}

void cRMIException::store(nsa::cAbstractSerializer& serializer) const
{
    cRuntimeException::store(serializer);
    mLocation >> serializer;
    miInterfaceIndex >> serializer;
    miInterfaceKey >> serializer;
    static_cast<unsigned int>(meOperation) >> serializer;
    msSignalSlotName >> serializer;
}

void cRMIException::load(nsa::cAbstractDeserializer& deserializer)
{
    cRuntimeException::load(deserializer);

    cComponentLocation location(cComponentAddr(), "", "", 0);
    unsigned int index = 0;
    unsigned int key = 0;
    unsigned int operation = 0;
    nstd::cAsciiString name;
    location << deserializer;
    index << deserializer;
    key << deserializer;
    operation << deserializer;
    name << deserializer;

    mLocation.swap(location);
    miInterfaceIndex = index;
    miInterfaceKey = key;
    meOperation = static_cast<Operation>(operation);
    msSignalSlotName.swap(name);
}

} // namespace ncs
