#include "cCalculator.h"

#include "nel_core/rmi/publicSlotCall.h"
#include "nel_core/std/cBugException.h"
#include "nel_core/std/cRuntimeException.h"
#include "nel_core/ucs/cLIMessage.h"

namespace {

nstd::cBugException missingEntry(int cell)
{
    nucs::cLIMessage unreadable;
    unreadable << "$MTR$The file \"%file%\" is shorter than its header says!"
               << "cells.dat";
    nucs::cLIMessage message;
    message << "$MTR$The index has no entry for memory cell %number%!" << cell;
    nstd::cBugException error(message);
    error.link(nstd::cRuntimeException(unreadable));
    return error;
}

} // namespace

cCalculator::cCalculator()
{
    nrmi::publishSlot(this, "add", &cCalculator::sltAdd, "the sum of two numbers");
    nrmi::publishSlot(this, "upper", &cCalculator::sltUpper,
                      "a text in upper case, and how many letters that changed");
    nrmi::publishSlot(this, "recall", &cCalculator::sltRecall, "the content of a memory cell");
}

cCalculator::~cCalculator() = default;

long long cCalculator::sltAdd(int left, int right)
{
    return static_cast<long long>(left) + right;
}

nucs::cString cCalculator::sltUpper(nucs::cString const& text, unsigned int& changed)
{
    nucs::cString upper(text);
    upper.upperCase();
    changed = 0;
    for (unsigned int i = 0; i < text.length(); ++i)
        changed += upper[i] != text[i];
    return upper;
}

int cCalculator::sltRecall(int cell)
{
    nucs::cLIMessage message;
    message << "$MTR$Unable to recall memory cell %number%!" << cell;
    nstd::cRuntimeException error(message);
    error.link(missingEntry(cell));
    throw error;
}
