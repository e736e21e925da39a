#include "nel_core/ncs/cComponentLocation.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "nel_core/pi/cPlatform.h"
#include "nel_core/sa/saOperators.h"
#include "nel_core/std/cNumberConversion.h"
#include "nel_core/std/cNumberConversionFormat.h"

namespace ncs {
namespace {

// Cuts the next word out of the text: what stands between separators.
nstd::cAsciiString cutWord(std::string_view& text, char const* separators)
{
    text.remove_prefix(std::min(text.find_first_not_of(separators), text.size()));
    auto const word = text.substr(0, text.find_first_of(separators));
    text.remove_prefix(word.size());
    return nstd::cAsciiString(word);
}

void loadLabelled(cComponentAddr& address, nsa::cAbstractDeserializer& deserializer)
{
    deserializer.findLabel("LocalAddress");
    nsa::cContext context(deserializer.getContext("ModuleAddress"));
    address << deserializer;
    context.release();
}

} // namespace

cComponentLocation::cComponentLocation()
{
    provide();
}

cComponentLocation::cComponentLocation(cComponentAddr const& address, nstd::cAsciiString const& hostName,
                                       nstd::cAsciiString const& localId, unsigned int pid)
    : mAddress(address),
      msHostName(hostName),
      msLocalId(localId),
      miPid(pid)
{
}

cComponentLocation::cComponentLocation(nstd::cAsciiString const& text)
{
    fromString(text);
}

cComponentLocation& cComponentLocation::operator=(cComponentLocation other) noexcept
{
    swap(other);
    return *this;
}

void cComponentLocation::swap(cComponentLocation& other) noexcept
{
    mAddress.swap(other.mAddress);
    msHostName.swap(other.msHostName);
    msLocalId.swap(other.msLocalId);
    std::swap(miPid, other.miPid);
}

void cComponentLocation::provide()
{
    *this = cComponentLocation(mAddress, npi::cPlatform::hostname(), "", npi::cPlatform::pid());
}

bool cComponentLocation::operator==(cComponentLocation const& other) const noexcept
{
    return mAddress == other.mAddress && msHostName == other.msHostName && msLocalId == other.msLocalId
           && miPid == other.miPid;
}

nstd::cAsciiString cComponentLocation::toString() const
{
    auto text = mAddress.toString();
    text += '-';
    text.addUNum32(miPid, nstd::cNumberConversionFormat(10));
    text += '@';
    text += msHostName;
    if (!msLocalId.empty()) {
        text += ':';
        text += msLocalId;
    }
    return text;
}

// The process ID is converted before the address: where both are wrong, it is the process ID that counts.
void cComponentLocation::fromString(nstd::cAsciiString const& text)
{
    std::string_view rest(text);
    auto const addressText = cutWord(rest, "- \t\n\r");
    auto const remainder = cutWord(rest, "- \t\n\r");

    rest = remainder;
    auto const pidText = cutWord(rest, "@");
    auto const hostName = cutWord(rest, "@:");
    auto const localId = cutWord(rest, "@:");

    auto const pid = nstd::cNumberConversion::fromString(pidText, nstd::cNumberConversionFormat(10));
    cComponentAddr const address(addressText);
    *this = cComponentLocation(address, hostName, localId, static_cast<unsigned int>(pid));
}

nsa::cAbstractSerializer& cComponentLocation::operator>>(nsa::cAbstractSerializer& serializer) const
{
    if (serializer.noLabelsPreferred()) {
        mAddress >> serializer;
        msHostName >> serializer;
        msLocalId >> serializer;
        return miPid >> serializer;
    }
    serializer.newLabel("LocalAddress");
    nsa::cContext context(serializer.newContext("ModuleAddress"));
    mAddress >> serializer;
    context.release();
    msHostName >> serializer.newLabel("HostName");
    msLocalId >> serializer.newLabel("LocalID");
    return miPid >> serializer.newLabel("PID");
}

nsa::cAbstractDeserializer& cComponentLocation::operator<<(nsa::cAbstractDeserializer& deserializer)
{
    cComponentLocation loaded(cComponentAddr(), "", "", 0);
    if (deserializer.noLabelsPreferred()) {
        loaded.mAddress << deserializer;
        loaded.msHostName << deserializer;
        loaded.msLocalId << deserializer;
        loaded.miPid << deserializer;
    } else {
        loadLabelled(loaded.mAddress, deserializer);
        loaded.msHostName << deserializer.findLabel("HostName");
        loaded.msLocalId << deserializer.findLabel("LocalID");
        loaded.miPid << deserializer.findLabel("PID");
    }
    swap(loaded);
    return deserializer;
}

} // namespace ncs
