#pragma once

#include "nel_core/export.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/std/fwd.h"

namespace npi {

/// Shows the works of a queue as a graph.
class NEL_EXPORT cWqDebug {
public:
    /// The graph of `queue` in the language of Graphviz' dot, of the system's queue when that is null: a node
    /// for each work, an edge from each parent to its child.
    static nstd::cAsciiString dot(cWorkQueue* queue);
};

/// Puts the graph of a queue into `out`.
NEL_EXPORT void dotDump(nstd::cAsciiString& out, cWorkQueue& queue);

} // namespace npi
