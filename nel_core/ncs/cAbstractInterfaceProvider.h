#pragma once

#include "nel_core/export.h"
#include "nel_core/ncs/cRegisteredInterface.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/rmi/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tPtrVector.h"

namespace ncs {

/// Holds the interfaces of a module. The position of an interface is its index.
class NEL_EXPORT cAbstractInterfaceProvider {
public:
    cAbstractInterfaceProvider();
    cAbstractInterfaceProvider(cAbstractInterfaceProvider const&) = delete;
    cAbstractInterfaceProvider& operator=(cAbstractInterfaceProvider const&) = delete;
    /// Deletes the interfaces that it owns.
    virtual ~cAbstractInterfaceProvider();

    /// Appends an interface and takes it over; it is deleted when that fails. Duplicates are not looked for,
    /// but an interface must not be taken over twice. An empty pointer fails the assertion
    /// "interface.get() != 0".
    virtual void addInterface(nstd::tAutoPtr<cAbstractInterface> interface);
    /// Appends an interface, which must be removed before it dies.
    virtual void addInterface(cAbstractInterface& interface);
    /// Removes every record of the interface, and then deletes it if one of them owned it. The indexes behind
    /// it move down.
    virtual void removeInterface(cAbstractInterface& interface);

    unsigned int numInterfaces() const noexcept { return maInterfaces.size(); }
    /// A list, which does not own them, of all interfaces in the order of their indexes.
    [[nodiscard]] nstd::tAutoPtr<nstd::tPtrList<cAbstractInterface>> interfaces() const;

    /// The first interface of that name; raises cNCSExceptions::throwNoSuchInterface() when there is none.
    cAbstractInterface& getInterface(nstd::cAsciiString const& name);
    cAbstractInterface& findInterface(nstd::cAsciiString const& name) const;
    /// The first interface of that name, null when there is none.
    cAbstractInterface* tryFindInterface(nstd::cAsciiString const& name) const;
    /// The interface at that index; raises cNCSExceptions::throwNoSuchInterface(), with the out-of-range
    /// error linked, when there is none.
    cAbstractInterface& getInterface(unsigned int index);
    cAbstractInterface& interface(unsigned int index) const;
    /// The interface that is this very object, null when it is none of these.
    cAbstractInterface* hasInterface(nrmi::cConnectable const& object) const;
    /// The same; raises cNoPublicInterfaceException instead.
    cAbstractInterface& findInterface(nrmi::cConnectable const& object) const;
    /// The first interface that matches the description, null when none does.
    cAbstractInterface* hasMatchingInterface(cInterfaceDesc const& desc);
    cAbstractInterface const* hasMatchingInterface(cInterfaceDesc const& desc) const;
    /// The same; raises cNCSExceptions::throwNoSuchInterface() instead.
    cAbstractInterface& getMatchingInterface(cInterfaceDesc const& desc) const;

private:
    void append(nstd::tAutoPtr<cRegisteredInterface> record);
    cAbstractInterface* firstMatch(cInterfaceDesc const& desc) const noexcept;

    nstd::tPtrVector<cRegisteredInterface> maInterfaces; ///< owned
};

} // namespace ncs
