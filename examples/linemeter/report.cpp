#include "report.h"

#include <cstdio>

#include "nel_core/std/cAbstractException.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/ucs/cString.h"

void report(char const* introduction, nstd::cAbstractException const& error)
{
    nucs::cString text;
    error.createMessage(text, "\n", nstd::cAbstractException::mfHistory | nstd::cAbstractException::mfIndent,
                        nullptr);
    std::fprintf(stderr, "%s%s\n", introduction, text.ascii().c_str());
}
