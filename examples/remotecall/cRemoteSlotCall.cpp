#include "cRemoteSlotCall.h"

#include "nel_core/rmi/cCallParameterMissmatchException.h"
#include "nel_core/rmi/cNoSuchSlotException.h"
#include "nel_core/sa/cDeserializeBinary.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/sa/cSerializeBinary.h"
#include "nel_core/std/cAbstractExceptionFactory.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/cTypeMissmatchException.h"
#include "nel_core/ucs/cLIMessage.h"

namespace {

template<typename T, typename... Arguments>
nstd::tAutoPtr<nstd::cAbstractException> create(Arguments const&... arguments)
{
    return nstd::tAutoPtr<nstd::cAbstractException>(new T(arguments...));
}

// The classes that are rebuilt as what they were. Their messages are loaded, the fields stay empty: they do
// not travel.
class cKnownExceptions : public nstd::cAbstractExceptionFactory {
public:
    nstd::tAutoPtr<nstd::cAbstractException>
    createException(nstd::cAsciiString const& typeName) const override
    {
        if (typeName == "cRuntimeException")
            return create<nstd::cRuntimeException>();
        if (typeName == "cBugException")
            return create<nstd::cBugException>();
        if (typeName == "cNoSuchSlotException")
            return create<nrmi::cNoSuchSlotException>("", "");
        if (typeName == "cCallParameterMissmatchException")
            return create<nrmi::cCallParameterMissmatchException>("");
        if (typeName == "cTypeMissmatchException")
            return create<nstd::cTypeMissmatchException>("", "");
        return nstd::tAutoPtr<nstd::cAbstractException>();
    }
};

[[noreturn]] void throwRemoteFailure(nstd::cAsciiString const& slotName,
                                     nsa::cAbstractDeserializer& deserializer)
{
    nucs::cLIMessage message;
    message << "$MTR$The call of \"%slot%\" has failed on the other side!" << slotName;
    nstd::cRuntimeException error(message);
    error.link(nstd::cAbstractException::createFromStream(deserializer, cKnownExceptions()).release());
    throw error;
}

} // namespace

cRemoteSlotCall::cRemoteSlotCall(nrmi::cConnectable& object, cAbstractPackets& socket)
    : cAbstractSlotCall(object, nullptr),
      mSocket(socket)
{
}

cRemoteSlotCall::~cRemoteSlotCall() = default;

void cRemoteSlotCall::call(nsa::cReferenceFrame& frame) const
{
    nsa::cSerializeBinary request;
    publicSlotName() >> request;
    frame.store(request, false, true); // readable entries: the arguments
    mSocket.send(request.ownData());

    nstd::tArray<char> answer;
    mSocket.receive(answer);
    nsa::cDeserializeBinary results(answer);
    bool isGood = false;
    isGood << results;
    if (!isGood)
        throwRemoteFailure(publicSlotName(), results);
    // The result comes first although it is the last entry. The alterable arguments follow; were the result
    // alterable, it would be taken for one of them.
    frame.loadLast(results);
    frame.load(results, true, false);
}
