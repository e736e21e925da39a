#include "nel_core/ncs/cAbstractInterfaceProvider.h"

#include <utility>

#include "nel_core/ncs/cNCSExceptions.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/cOutOfRangeException.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/tPtrList.h"

namespace ncs {
namespace {

template<typename IsWanted>
cAbstractInterface* firstOf(nstd::tPtrVector<cRegisteredInterface> const& records, IsWanted isWanted)
{
    for (unsigned int i = 0; i < records.size(); ++i) {
        if (isWanted(*records[i]->interface()))
            return records[i]->interface();
    }
    return nullptr;
}

} // namespace

cAbstractInterfaceProvider::cAbstractInterfaceProvider()
{
    maInterfaces.setGuardMode(nstd::tPtrVector<cRegisteredInterface>::gmOwn);
}

// The records leave all at once: what an interface's destructor asks here finds none of them.
cAbstractInterfaceProvider::~cAbstractInterfaceProvider()
{
    maInterfaces.destroyArray(true);
}

void cAbstractInterfaceProvider::addInterface(nstd::tAutoPtr<cAbstractInterface> interface)
{
    NEL_ASSERT(interface.get() != 0);
    append(nstd::tAutoPtr<cRegisteredInterface>(new cRegisteredInterface(std::move(interface))));
}

void cAbstractInterfaceProvider::addInterface(cAbstractInterface& interface)
{
    append(nstd::tAutoPtr<cRegisteredInterface>(new cRegisteredInterface(interface)));
}

void cAbstractInterfaceProvider::removeInterface(cAbstractInterface& interface)
{
    nstd::tAutoPtr<cRegisteredInterface> owner; // goes last: the interface's destructor may call back
    for (unsigned int i = maInterfaces.size(); i-- > 0;) {
        if (maInterfaces[i]->interface() != &interface)
            continue;
        auto record = maInterfaces.take(i);
        if (record->isOwner())
            owner = std::move(record);
    }
}

nstd::tAutoPtr<nstd::tPtrList<cAbstractInterface>> cAbstractInterfaceProvider::interfaces() const
{
    nstd::tAutoPtr<nstd::tPtrList<cAbstractInterface>> all(new nstd::tPtrList<cAbstractInterface>);
    for (unsigned int i = 0; i < maInterfaces.size(); ++i)
        all->append(maInterfaces[i]->interface());
    return all;
}

cAbstractInterface& cAbstractInterfaceProvider::getInterface(nstd::cAsciiString const& name)
{
    return findInterface(name);
}

cAbstractInterface& cAbstractInterfaceProvider::findInterface(nstd::cAsciiString const& name) const
{
    auto* const found = tryFindInterface(name);
    if (!found)
        cNCSExceptions::throwNoSuchInterface(name, nullptr);
    return *found;
}

cAbstractInterface* cAbstractInterfaceProvider::tryFindInterface(nstd::cAsciiString const& name) const
{
    return firstOf(maInterfaces, [&](auto const& interface) { return interface.desc().name() == name; });
}

cAbstractInterface& cAbstractInterfaceProvider::getInterface(unsigned int index)
{
    return interface(index);
}

cAbstractInterface& cAbstractInterfaceProvider::interface(unsigned int index) const
try {
    return *maInterfaces.at(index)->interface();
} catch (nstd::cOutOfRangeException const& cause) {
    cNCSExceptions::throwNoSuchInterface("given by index", &cause);
}

cAbstractInterface* cAbstractInterfaceProvider::hasInterface(nrmi::cConnectable const& object) const
{
    return firstOf(maInterfaces, [&](nrmi::cConnectable const& interface) { return &interface == &object; });
}

cAbstractInterface& cAbstractInterfaceProvider::findInterface(nrmi::cConnectable const& object) const
{
    auto* const found = hasInterface(object);
    if (!found)
        cNCSExceptions::throwNoPublicInterface(object);
    return *found;
}

cAbstractInterface* cAbstractInterfaceProvider::hasMatchingInterface(cInterfaceDesc const& desc)
{
    return firstMatch(desc);
}

cAbstractInterface const* cAbstractInterfaceProvider::hasMatchingInterface(cInterfaceDesc const& desc) const
{
    return firstMatch(desc);
}

cAbstractInterface& cAbstractInterfaceProvider::getMatchingInterface(cInterfaceDesc const& desc) const
{
    auto* const found = firstMatch(desc);
    if (!found)
        cNCSExceptions::throwNoSuchInterface(desc.name(), nullptr);
    return *found;
}

void cAbstractInterfaceProvider::append(nstd::tAutoPtr<cRegisteredInterface> record)
{
    maInterfaces.append(record.get());
    static_cast<void>(record.release());
}

cAbstractInterface* cAbstractInterfaceProvider::firstMatch(cInterfaceDesc const& desc) const noexcept
{
    return firstOf(maInterfaces, [&](auto const& interface) { return interface.matches(desc); });
}

} // namespace ncs
