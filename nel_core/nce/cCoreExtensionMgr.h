#pragma once

#include "nel_core/export.h"
#include "nel_core/nce/cAbstractCoreExtension.h"
#include "nel_core/nce/cExtensionPair.h"
#include "nel_core/nce/fwd.h"
#include "nel_core/ncs/fwd.h"
#include "nel_core/pi/fwd.h"
#include "nel_core/sa/fwd.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/std/tPtrList.h"
#include "nel_core/ucs/fwd.h"

namespace nce {

/// The core extensions of a process, and the services that they offer, by name.
///
/// Where several extensions support a name, the one that was added first counts. Names are compared in upper
/// case. Used by one thread; the system object owns one.
///
/// What extensions do when they are asked or deleted may add others. While the manager, or the system that
/// owns it, goes away, it takes none: add() and load() raise an unsupported operation then. Only exceptions
/// of the library may leave a module, and it must have taken back what it gave away (works, connections)
/// before it is destroyed: its code goes with it.
class NEL_EXPORT cCoreExtensionMgr {
public:
    cCoreExtensionMgr();
    cCoreExtensionMgr(cCoreExtensionMgr const&) = delete;
    cCoreExtensionMgr& operator=(cCoreExtensionMgr const&) = delete;
    /// Unloads and deletes the extensions in the order in which they were added.
    virtual ~cCoreExtensionMgr();

    /// Takes an extension over; without one an assertion fails.
    void add(nstd::tAutoPtr<cAbstractCoreExtension> extension);
    /// Loads a module by name (see ncs::cPlugInMgr::loadPlugIn()) as a core extension; the plug-in is the
    /// manager's. The frame is for the plug-in; without one an empty frame is made. Raises the errors of the
    /// class loader, and cNCSExceptions::throwNoCoreExtension() when it is none; nothing stays loaded then.
    ncs::cAbstractPlugIn& load(nucs::cString const& name, nsa::cReferenceFrame& frame);
    ncs::cAbstractPlugIn& load(nucs::cString const& name);
    /// The same with a name in the encoding of the system's file system; also raises the codec's errors.
    ncs::cAbstractPlugIn& load(nstd::cAsciiString const& name, nsa::cReferenceFrame& frame);
    /// Whether the file of the module of that name exists in the system's file system, valid or not. Names
    /// without a directory are looked for in the current one.
    bool has(nucs::cString const& name) const;
    /// Unloads and deletes all extensions, of which none is to be found from the start; one that is added
    /// meanwhile stays. What they have created must be gone.
    void clear();

    /// The first extension of any kind that supports the name; null when there is none.
    cAbstractCoreExtension const* hasExtension(nstd::cAsciiString const& name) const;
    /// Appends the names of all services of a kind.
    void provides(cAbstractCoreExtension::ExtensionType type, nstd::tVector<nstd::cAsciiString>& names) const;

    /// Create a service by name. Raise cUnsupportedExtensionException when no extension of the kind supports
    /// the name, and what the extension raises.
    [[nodiscard]] nstd::tAutoPtr<nucs::cAbstractEnDec> createEnDec(nstd::cAsciiString const& name) const;
    /// The argument is for the extension.
    [[nodiscard]] nstd::tAutoPtr<nsa::cAbstractSerializer>
    createSerializer(nstd::cAsciiString const& name, nstd::cAsciiString const& argument) const;
    [[nodiscard]] nstd::tAutoPtr<nsa::cAbstractDeserializer>
    createDeserializer(nstd::cAsciiString const& name, nucs::cString const& fileName) const;
    [[nodiscard]] nstd::tAutoPtr<nsa::cAbstractDeserializer>
    createDeserializer(nstd::cAsciiString const& name,
                       nstd::tConstArrayRef<char, nstd::tArrayByteLevelTraits<char>> const& data) const;
    /// The extension gets the name as it is written here.
    [[nodiscard]] nstd::tAutoPtr<cNetAbstractAddress> createNetAddress(nstd::cAsciiString const& name) const;

private:
    friend class npi::cSystem;

    /// Clears, and refuses every further extension. The system closes its manager before it goes away.
    void close();
    /// Whether load() or clear() is on the stack: the manager must live.
    bool isBusy() const noexcept { return miBusy != 0; }
    void requireOpen(char const* operation) const;
    void append(nstd::tAutoPtr<cExtensionPair> record);
    cAbstractSAExtension const& findSerializer(nstd::cAsciiString const& name) const;

    nstd::tPtrList<cExtensionPair> mExtensions; ///< owned
    unsigned int miBusy = 0;                    ///< calls of load() and clear() on the stack
    bool mbClosed = false;
};

/// The first extension of that type among the records that supports the name; null when there is none.
/// `typeFound` becomes true when there is one of the type, whatever it supports. `kind` is the word for the
/// type in errors. There are instances for the three kinds of service.
template<typename T>
NEL_EXPORT T const* hasExtension(nstd::tPtrList<cExtensionPair> const& records, bool& typeFound,
                                 cAbstractCoreExtension::ExtensionType type, nstd::cAsciiString const& kind,
                                 nstd::cAsciiString const& name);
/// The same; raises cUnsupportedExtensionException when there is none.
template<typename T>
NEL_EXPORT T const& findExtension(nstd::tPtrList<cExtensionPair> const& records,
                                  cAbstractCoreExtension::ExtensionType type, nstd::cAsciiString const& kind,
                                  nstd::cAsciiString const& name);

extern template NEL_EXPORT cNetAbstractAddressExtension const*
hasExtension<cNetAbstractAddressExtension>(nstd::tPtrList<cExtensionPair> const&, bool&,
                                           cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                           nstd::cAsciiString const&);
extern template NEL_EXPORT cAbstractSAExtension const*
hasExtension<cAbstractSAExtension>(nstd::tPtrList<cExtensionPair> const&, bool&,
                                   cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                   nstd::cAsciiString const&);
extern template NEL_EXPORT cAbstractEnDecExtension const*
hasExtension<cAbstractEnDecExtension>(nstd::tPtrList<cExtensionPair> const&, bool&,
                                      cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                      nstd::cAsciiString const&);
extern template NEL_EXPORT cNetAbstractAddressExtension const&
findExtension<cNetAbstractAddressExtension>(nstd::tPtrList<cExtensionPair> const&,
                                            cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                            nstd::cAsciiString const&);
extern template NEL_EXPORT cAbstractSAExtension const&
findExtension<cAbstractSAExtension>(nstd::tPtrList<cExtensionPair> const&,
                                    cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                    nstd::cAsciiString const&);
extern template NEL_EXPORT cAbstractEnDecExtension const&
findExtension<cAbstractEnDecExtension>(nstd::tPtrList<cExtensionPair> const&,
                                       cAbstractCoreExtension::ExtensionType, nstd::cAsciiString const&,
                                       nstd::cAsciiString const&);

} // namespace nce
