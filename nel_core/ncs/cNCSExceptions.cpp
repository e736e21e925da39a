#include "nel_core/ncs/cNCSExceptions.h"

#include <utility>

#include "nel_core/ncs/cNoPublicInterfaceException.h"
#include "nel_core/ncs/cNoSuchModuleException.h"
#include "nel_core/std/raise.h"
#include "nel_core/ucs/cString.h"

using nstd::makeMessage;
using nstd::raiseRuntime;

void cNCSExceptions::throwNoPublicInterface(nrmi::cConnectable const&)
{
    throw ncs::cNoPublicInterfaceException();
}

void cNCSExceptions::throwNoSuchModule(nstd::cAsciiString const& name)
{
    throw ncs::cNoSuchModuleException(name);
}

void cNCSExceptions::throwNoSuchModule(ncs::cComponentLocation const& location)
{
    throw ncs::cNoSuchModuleException(location);
}

void cNCSExceptions::throwNoSuchModule(ncs::cComponentAddr const& address)
{
    throw ncs::cNoSuchModuleException(address);
}

void cNCSExceptions::throwInterfaceLoadError(nstd::cAsciiString const& name)
{
    raiseRuntime(makeMessage("$MTR$Unable to deserialize interface description of \"%name%\"!", name));
}

void cNCSExceptions::throwComponentIdNotUnique(unsigned int id)
{
    raiseRuntime(makeMessage("$MTR$Component id (%id%) not unique!", id));
}

void cNCSExceptions::throwNoSuchInterface(nstd::cAsciiString const& name,
                                          nstd::cAbstractException const* cause)
{
    auto message = makeMessage("$MTR$No such interface (\"%interface%\")!", name);
    if (cause)
        raiseRuntime(std::move(message), *cause);
    raiseRuntime(std::move(message));
}

void cNCSExceptions::throwNoCoreExtension(nucs::cString const& name)
{
    raiseRuntime(
        makeMessage("$MTR$Module (\"%name%\") does not provide core extension functionality.", name));
}
