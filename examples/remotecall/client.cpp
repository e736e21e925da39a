#include "client.h"

#include <cstdio>
#include <initializer_list>

#include "cRemoteFactory.h"
#include "nel_core/rmi/cAbstractSlotCall.h"
#include "nel_core/rmi/cPublicSlot.h"
#include "nel_core/sa/cReferenceFrame.h"
#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/tPtrList.h"
#include "nel_core/ucs/cString.h"
#include "show.h"

namespace {

nstd::cAsciiString parametersOf(nrmi::cPublicSlot const& slot)
{
    nstd::cAsciiString text;
    for (auto const& parameter : slot.parameters()) {
        text += text.length() > 0 ? ", " : "";
        text += parameter.typeName();
        text += parameter.isAlterable() ? "&" : "";
    }
    return text;
}

bool showInterface(nrmi::cConnectable& calculator)
{
    std::puts("The other process offers:");
    for (auto const* const slot : calculator.codRSlots())
        std::printf("  %s %s(%s): %s\n", slot->returnValue().typeName().c_str(), slot->name().c_str(),
                    parametersOf(*slot).c_str(), slot->description().c_str());
    return calculator.codRSlots().size() == 3;
}

bool add(nrmi::cConnectable const& calculator)
{
    int left = 2000000000;
    int right = 42;
    long long sum = 0;
    nsa::cReferenceFrame frame;
    frame.addRef(left, false, true).addRef(right, false, true).addRef(sum, false, false);
    calculator.invokeIndirectSlot("add", frame);
    std::printf("add(%d, %d) = %lld\n", left, right, sum);
    return sum == 2000000042;
}

bool upper(nrmi::cConnectable const& calculator)
{
    nucs::cString text(U"Smørrebrød costs 5 €");
    unsigned int changed = 0;
    nucs::cString result;
    nsa::cReferenceFrame frame;
    frame.addRef(text, false, true).addRef(changed, true, true).addRef(result, false, false);
    calculator.invokeIndirectSlot("upper", frame);

    std::fputs("upper(\"", stdout);
    show(stdout, text);
    std::fputs("\") = \"", stdout);
    show(stdout, result);
    std::printf("\", %u letters changed\n", changed);
    return result == nucs::cString(U"SMøRREBRøD COSTS 5 €") && changed == 12;
}

bool hasTypes(nstd::cAbstractException const& error, std::initializer_list<char const*> typeNames)
{
    auto const* member = &error;
    for (char const* const typeName : typeNames) {
        if (!member || member->typeName() != typeName)
            return false;
        member = member->history();
    }
    return !member;
}

// Whether the call fails with a chain of these types.
bool showFailure(nrmi::cConnectable const& calculator, char const* name, nsa::cReferenceFrame& frame,
                 std::initializer_list<char const*> typeNames)
{
    try {
        calculator.invokeIndirectSlot(name, frame);
    } catch (nstd::cAbstractException const& error) {
        show(stdout, error);
        return hasTypes(error, typeNames);
    }
    std::puts("  no failure");
    return false;
}

bool recall(nrmi::cConnectable const& calculator)
{
    int cell = 7;
    int content = 0;
    nsa::cReferenceFrame frame;
    frame.addRef(cell, false, true).addRef(content, false, false);
    std::printf("recall(%d):\n", cell);
    return showFailure(calculator, "recall", frame,
                       {"cRuntimeException", "cRuntimeException", "cBugException", "cRuntimeException"});
}

bool addText(nrmi::cConnectable const& calculator)
{
    nstd::cAsciiString left("two");
    int right = 2;
    long long sum = 0;
    nsa::cReferenceFrame frame;
    frame.addRef(left, false, true).addRef(right, false, true).addRef(sum, false, false);
    std::printf("add(\"%s\", %d):\n", left.c_str(), right);
    return showFailure(calculator, "add", frame,
                       {"cRuntimeException", "cCallParameterMissmatchException", "cRuntimeException",
                        "cTypeMissmatchException"});
}

// The description told of no such slot: it is published here all the same, to hear what the other side says.
bool multiply(nrmi::cConnectable& calculator, cRemoteFactory& factory)
{
    calculator.registerRemoteSlot("multiply", factory.createRemoteSlotCall(calculator));
    int left = 6;
    double right = 7;
    long long product = 0;
    nsa::cReferenceFrame frame;
    frame.addRef(left, false, true).addRef(right, false, true).addRef(product, false, false);
    std::printf("multiply(%d, %g):\n", left, right);
    return showFailure(calculator, "multiply", frame, {"cRuntimeException", "cNoSuchSlotException"});
}

} // namespace

bool callRemoteSlots(cAbstractPackets& socket)
{
    cRemoteFactory factory(socket);
    nrmi::cConnectable calculator;
    factory.receiveInterface(calculator);

    bool isGood = showInterface(calculator);
    isGood &= add(calculator);
    isGood &= upper(calculator);
    isGood &= recall(calculator);
    isGood &= addText(calculator);
    isGood &= multiply(calculator, factory);
    return isGood;
}
