#pragma once

#include "nel_core/ncs/fwd.h"
#include "nel_core/std/cAsciiString.h"

/// The registered components in the language of Graphviz' dot: a node for each, with what it provides. A
/// solid edge leads to a component that it requires, a dashed one to the provider that a dependency is bound
/// to, or to a question mark with the name of the interface that is needed.
nstd::cAsciiString componentGraph(ncs::cModuleMgr const& manager);
