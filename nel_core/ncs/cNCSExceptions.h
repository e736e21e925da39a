#pragma once

#include "nel_core/export.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/rmi/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

/// The throw functions of the component system. Each makes its exception without a source position and
/// throws it.
class NEL_EXPORT cNCSExceptions {
public:
    /// Raises ncs::cNoPublicInterfaceException: `object` belongs to no interface of any component.
    [[noreturn]] static void throwNoPublicInterface(nrmi::cConnectable const& object);
    /// Raise ncs::cNoSuchModuleException.
    [[noreturn]] static void throwNoSuchModule(nstd::cAsciiString const& name);
    [[noreturn]] static void throwNoSuchModule(ncs::cComponentLocation const& location);
    [[noreturn]] static void throwNoSuchModule(ncs::cComponentAddr const& address);
    /// Raises nstd::cRuntimeException.
    [[noreturn]] static void throwInterfaceLoadError(nstd::cAsciiString const& name);
    /// Raises nstd::cRuntimeException.
    [[noreturn]] static void throwComponentIdNotUnique(unsigned int id);
    /// Raises nstd::cRuntimeException, with a copy of `cause` linked unless that is null.
    [[noreturn]] static void throwNoSuchInterface(nstd::cAsciiString const& name,
                                                  nstd::cAbstractException const* cause);
    /// Raises nstd::cRuntimeException: the module of that name is no core extension.
    [[noreturn]] static void throwNoCoreExtension(nucs::cString const& name);
};
