// What every throw function raises: class, kind, text and causes.

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <typeinfo>

#include "nel_core/io/cIOExceptions.h"
#include "nel_core/nce/cUnsupportedExtensionException.h"
#include "nel_core/nce/net++/cNETExceptions.h"
#include "nel_core/ncs/cModuleLoadException.h"
#include "nel_core/ncs/cNCSExceptions.h"
#include "nel_core/ncs/cRMIException.h"
#include "nel_core/ncs/cUnmatchedInterfaceException.h"
#include "nel_core/pi/cPIExceptions.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/cRMIExceptions.h"
#include "nel_core/sa/cLabeledTypeMissmatchException.h"
#include "nel_core/sa/cSAExceptions.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cNumberConversionException.h"
#include "nel_core/std/cOSErrorException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/std/cSTDExceptions.h"
#include "nel_core/ucs/cString.h"
#include "nel_core/ucs/cUCSExceptions.h"
#include "tests/support/cSystemFixture.h"
#include "tests/support/raisedBy.h"

namespace {

using nio::cIOExceptions;
using npi::cPIExceptions;
using nrmi::cRMIExceptions;
using nstd::cAbstractException;

cAbstractException const& cause()
{
    static nstd::cRuntimeException const error = [] {
        nucs::cLIMessage message;
        message << "Cause";
        return nstd::cRuntimeException(message);
    }();
    return error;
}

class cConnectable : public nrmi::cConnectable { };

struct cThrowRow {
    void (*raise)();
    char const* typeName;
    char const* text; ///< with the causes, separated by "; "
};

using ncs::cComponentAddr;
using ncs::cComponentLocation;
using ncs::cRMIException;

constexpr auto kBug = "cBugException";
constexpr auto kRuntime = "cRuntimeException";

cThrowRow const kRows[] = {
    {[] { cSTDExceptions::throwOutOfBounds("tX", nullptr); }, "cOutOfBoundsException",
     "Out of bounds condition detected in \"tX\"!"},
    {[] { cSTDExceptions::throwOutOfBounds(nullptr, "at"); }, "cOutOfBoundsException",
     "Out of bounds condition detected!"},
    {[] { cSTDExceptions::throwCoreBug("odd", "f", 3); }, kBug, "Bug (\"odd\") detected!"},
    {[] { cSTDExceptions::throwElementNotFound("tX", nullptr); }, kBug,
     "Element could not be found in \"tX\" while operation \"unknown\"!"},
    {[] { cSTDExceptions::throwWrongAnyDereference("tA", "tB"); }, "cTypeMissmatchException",
     "Type mismatch: Expecting type \"tA\" but got object of type \"tB\"!; "
     "User requested object of wrong type (\"tA\") from type cAny which contains \"tB\"!"},
    {[] { throw nstd::cOSErrorException("stat", ENOENT); }, "cOSErrorException",
     "OS-Error while trying operation \"stat\"!; Error: \"No such file or directory\"!"},
    {[] { throw nstd::cOSErrorException("open", EACCES, "/x"); }, "cOSErrorException",
     "OS-Error while trying operation \"open\" on file \"/x\"!; Error: \"Permission denied\"!"},
    {[] { throw nstd::cTypeErrorException("tA"); }, "cTypeErrorException",
     "Type error while deserializing of tA!"},
    {[] { throw nstd::cNumberConversionException("1x", 1); }, "cNumberConversionException",
     "Number conversion error. \"1x\" contains invalid characters at index 1!"},

    {[] { cSAExceptions::throwInvalidTypeId(-77); }, kRuntime, "Invalid type id (-77) while deserializing!"},
    {[] { cSAExceptions::throwEndOfContext(); }, kRuntime, "Unable to deserialize - end of context!"},
    {[] { cSAExceptions::throwSerializerDataWithOpenContexts(); }, kBug,
     "Calling data() with open contexts is invalid!"},
    {[] { cSAExceptions::throwSerializerClearWithOpenContexts(); }, kBug,
     "Calling erase() with open contexts is invalid!"},
    {[] { cSAExceptions::throwContextRefNoImpl(); }, kBug, "cContextRef::unguardImpl(): no valid reference!"},
    {[] { cSAExceptions::throwLabelNotFound("here"); }, kRuntime,
     "Unable to deserialize - label (\"here\") not found in current context!"},
    {[] { cSAExceptions::throwUnserializable(nullptr); }, kBug,
     "Attempt to serialize the local type unknown!"},
    {[] { cSAExceptions::throwDeserializationError(cause(), "cX"); }, kRuntime,
     "Deserialization error in (cX)!; Cause"},
    {[] { cSAExceptions::throwSerializationError(cause(), "cX"); }, kRuntime,
     "Serialization error (cX)!; Cause"},
    {[] { throw nsa::cLabeledTypeMissmatchException("tA", "tB", "here"); }, "cLabeledTypeMissmatchException",
     "Type mismatch: Expecting type \"tA\" but got object of type \"tB\" - last label was \"here\"!"},

    {[] { cNCSExceptions::throwNoPublicInterface(cConnectable()); }, "cNoPublicInterfaceException",
     "No public interface!"},
    {[] { cNCSExceptions::throwNoSuchModule("m"); }, "cNoSuchModuleException", "Module (m) not found!"},
    {[] { cNCSExceptions::throwNoSuchModule(cComponentAddr(1, 7)); }, "cNoSuchModuleException",
     "Module (1:7) not found!"},
    {[] { cNCSExceptions::throwNoSuchModule(cComponentLocation("1:7-4711@alpha")); },
     "cNoSuchModuleException", "Module (1:7-4711@alpha) not found!"},
    {[] { cNCSExceptions::throwInterfaceLoadError("i"); }, kRuntime,
     "Unable to deserialize interface description of \"i\"!"},
    {[] { cNCSExceptions::throwComponentIdNotUnique(4000000000); }, kRuntime,
     "Component id (4000000000) not unique!"},
    {[] { cNCSExceptions::throwNoSuchInterface("i", nullptr); }, kRuntime, "No such interface (\"i\")!"},
    {[] { cNCSExceptions::throwNoCoreExtension("m"); }, kRuntime,
     "Module (\"m\") does not provide core extension functionality."},
    {[] { throw cRMIException(4000000000, cRMIException::opCallSlot, "s"); }, "cRMIException",
     "Unable to call slot \"s\" on interface key 4000000000!"},
    {[] { throw cRMIException(4, cRMIException::opConnectSignal, "s"); }, "cRMIException",
     "Unable to connect signal \"s\" to interface key 4!"},
    {[] { throw cRMIException(cComponentLocation(), 3, cRMIException::opCallSlot, "s"); }, "cRMIException",
     "Unable to call slot \"s\" on interface 3!"},
    {[] { throw cRMIException(cComponentLocation(), 3, cRMIException::opConnectSignal, "s"); },
     "cRMIException", "Unable to connect signal \"s\" to interface 3!"},
    {[] { throw cRMIException(4, static_cast<cRMIException::Operation>(2), "s"); }, "cRMIException", ""},
    {[] {
         throw ncs::cModuleLoadException(ncs::cModuleLoadException::kpNotLoaded, "f", *cause().liMessage());
     },
     "cModuleLoadException", "Cause"},
    {[] { throw ncs::cUnmatchedInterfaceException(); }, "cUnmatchedInterfaceException",
     "Unmatched interface!"},
    {[] { throw nce::cUnsupportedExtensionException("Encoder / Decoder", "X", true); },
     "cUnsupportedExtensionException", "No Encoder / Decoder of type \"X\" found!"},
    {[] { throw nce::cUnsupportedExtensionException("Encoder / Decoder", "X"); },
     "cUnsupportedExtensionException", "Extension type \"Encoder / Decoder\" not supported in \"X\"!"},

    {[] { cNETExceptions::throwTransferTimeout(250); }, kRuntime, "Transfer timeout after 250 milliseconds!"},
    {[] { cNETExceptions::throwConnectionTxBusy(); }, kRuntime,
     "Unable to send packet - transmitter is busy!"},
    {[] { cNETExceptions::throwConnectionClosedUnexpectedly(cause()); }, kRuntime,
     "Remote connection has been closed unexpectedly!; Cause"},
    {[] { cNETExceptions::throwUnableToCompleteConnectionClosedUnexpectedly(cause()); }, kRuntime,
     "Unable to complete request - remote connection has been closed unexpectedly!; Cause"},
    {[] { cNETExceptions::throwInvalidAddress(cause()); }, kRuntime, "Invalid network address!; Cause"},

    {[] { cUCSExceptions::throwUnableToParseTranslationFile(cause(), "f", 8); }, kRuntime,
     "Unable to parse translation file (f) line 8!; Cause"},
    {[] { cUCSExceptions::throwUnableToReadTranslationFile(cause(), "f"); }, kRuntime,
     "Unable to read translation file (f)!; Cause"},
    {[] { cUCSExceptions::throwUSCEncodeError(cause()); }, kRuntime, "Unicode encoding error!; Cause"},

    {[] { cRMIExceptions::throwIndirectCallSlotCallRef(); }, kBug,
     "Indirect slots cannot be called by reference!"},
    {[] { cRMIExceptions::throwIndirectLocalSlotCall(); }, kBug,
     "Slots connected to an explicit local signal cannot be called indirectly!"},
    {[] { cRMIExceptions::throwNoSuchSignal("sig"); }, "cNoSuchSignalException",
     "Signal \"sig\" could not be found in interface!"},
    {[] { cRMIExceptions::throwNoSuchSlot("slt", "(?)"); }, "cNoSuchSlotException",
     "Slot \"slt((?))\" not found in interface!"},

    {[] { cIOExceptions::throwEndOfFile("f"); }, kBug, "End of file \"f\" reached!"},
    {[] { cIOExceptions::throwRelativePathUnderrun("../f"); }, kRuntime, "Invalid path \"../f\"!"},
    {[] { cIOExceptions::throwUnableCreatePath(cause(), "f"); }, kRuntime,
     "Unable to create path \"f\"!; Cause"},
    {[] { cIOExceptions::throwUnableRemoveFile(cause(), "f"); }, kRuntime,
     "Unable to remove file \"f\"!; Cause"},
    {[] { cIOExceptions::throwUnableReadFile(cause(), "f"); }, kRuntime,
     "Unable to read from file \"f\"!; Cause"},
    {[] { cIOExceptions::throwUnableWriteFile(cause(), "f"); }, kRuntime,
     "Unable to write to file \"f\"!; Cause"},
    {[] { cIOExceptions::throwUnableOpenFile(cause(), "f"); }, kRuntime, "Unable to open file \"f\"!; Cause"},
    {[] { cIOExceptions::throwUnableToRead(18446744073709551615u); }, kRuntime,
     "Unable to read 18446744073709551615 bytes!"},
    {[] { cIOExceptions::throwUnableToReadOddAmountOfData(7, 4); }, kRuntime,
     "Unable to read odd amount of data (7 bytes but element size is 4)!"},
    {[] { cIOExceptions::throwIOTimeout(9); }, kRuntime, "Timeout while i/o operation after 9 milliseconds!"},

    {[] { cPIExceptions::throwUnableGetOSSpecificPath(); }, kRuntime, "Unable to find out os specific path!"},
    {[] { cPIExceptions::throwUnableGetCWD(); }, kRuntime, "Unable to find out current working directory!"},
    {[] { cPIExceptions::throwUnimplemented("fly"); }, "cUnsupportedPlatformException",
     "Operation (\"fly\") not supported for this platform!"},
    {[] { cPIExceptions::throwRunnableNotAssignable(); }, kBug, "Threads could not be assigned!"},
    {[] { cPIExceptions::throwRunnableNotCopyable(); }, kBug, "Threads could not be copied!"},
};

std::string textOf(cAbstractException const& error)
{
    nucs::cString out;
    error.createMessage(out, "; ", cAbstractException::mfHistory, nullptr);
    return ntest::text(out);
}

class throwTablesTest : public ntest::cSystemFixture { };

TEST_F(throwTablesTest, everyFunctionRaisesItsClassTextAndCauses)
{
    for (auto const& row : kRows) {
        SCOPED_TRACE(row.text);
        try {
            row.raise();
            ADD_FAILURE() << "nothing raised";
        } catch (cAbstractException const& error) {
            EXPECT_EQ(error.typeName(), row.typeName);
            EXPECT_EQ(textOf(error), row.text);
            bool const isBug = dynamic_cast<nstd::cBugException const*>(&error) != nullptr;
            EXPECT_EQ(error.type(), isBug ? cAbstractException::tyBug : cAbstractException::tyRuntime);

            auto* const copy = error.createObject();
            EXPECT_EQ(typeid(*copy), typeid(error));
            EXPECT_EQ(textOf(*copy), row.text);
            delete copy;
        }
    }
}

} // namespace
