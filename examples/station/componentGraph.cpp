#include "componentGraph.h"

#include "nel_core/ncs/cAbstractComponent.h"
#include "nel_core/ncs/cAbstractInterface.h"
#include "nel_core/ncs/cInterfaceDep.h"
#include "nel_core/ncs/cModuleMgr.h"
#include "nel_core/ncs/cUnmatchedInterfaceException.h"
#include "nel_core/std/cAsciiStringStream.h"

namespace {

constexpr char kLineBreak[] = "\\n";

// A text as it stands between quotation marks.
nstd::cAsciiString escaped(nstd::cAsciiString const& text)
{
    nstd::cAsciiString result;
    for (char const c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += nstd::cAsciiString::isPrintable(c) ? c : '?';
    }
    return result;
}

nstd::cAsciiString idOf(ncs::cComponentAddr const& address)
{
    nstd::cAsciiString id("\"");
    id << address.toString() << "\"";
    return id;
}

void addNode(nstd::cAsciiString& out, ncs::cAbstractComponent const& component)
{
    auto const& address = component.address();
    out << idOf(address) << " [ label=\"" << escaped(component.moduleInfo().context()) << kLineBreak
        << address.toString();
    for (unsigned int i = 0; i < component.numInterfaces(); ++i)
        out << kLineBreak << escaped(component.interface(i).desc().name());
    out << "\",shape=\"box\" ];\n";
}

void addEdge(nstd::cAsciiString& out, ncs::cAbstractComponent const& from, nstd::cAsciiString const& to,
             char const* style)
{
    out << idOf(from.address()) << " -> " << to << " [ style=\"" << style << "\" ];\n";
}

// A dependency stays matched until its owner has dealt with the loss of the provider.
nstd::cAsciiString providerOf(ncs::cInterfaceDep const& dependency)
{
    try {
        if (dependency.matched())
            return idOf(dependency.address());
    } catch (ncs::cUnmatchedInterfaceException const&) {
        // no provider
    }
    nstd::cAsciiString missing("\"? ");
    missing << escaped(dependency.desc().name()) << "\"";
    return missing;
}

} // namespace

nstd::cAsciiString componentGraph(ncs::cModuleMgr const& manager)
{
    nstd::cAsciiString out("digraph components {\n");
    for (auto const* const record : manager.components()) {
        if (!record->isErased())
            addNode(out, record->component());
    }
    for (auto const* const record : manager.components()) {
        if (record->isErased())
            continue;
        auto const& component = record->component();
        for (auto const* const required : component.localRequiredComponents())
            addEdge(out, component, idOf(required->address()), "solid");
        for (auto const* const dependency : component.interfaceDeps())
            addEdge(out, component, providerOf(*dependency), "dashed");
    }
    out << "}\n";
    return out;
}
