#pragma once

#include "nel_core/rmi/cAbstractSignal.h"
#include "nel_core/rmi/cPublicDescription.h"

namespace nrmi {

/// A signal that can be found by its name; belongs to a connectable.
///
/// Stored form: name, return type name, parameter type names and description as ASCII strings, the interface
/// type as unsigned 32-bit, the parameters (a context named "unknown" that holds the values), the return
/// value. The signal does not travel.
class NEL_EXPORT cPublicSignal : public cPublicDescription {
public:
    cPublicSignal(nstd::cAsciiString const& name, nstd::cAsciiString const& returnTypeName,
                  nstd::cAsciiString const& paramTypeNames, cAbstractSignal::InterfaceType type,
                  nstd::cAsciiString const& description, cAbstractSignal& signal);
    /// The same with a description that is read.
    cPublicSignal(nsa::cAbstractDeserializer& deserializer, cAbstractSignal& signal);
    /// Is not the public signal of its signal any more, see cAbstractSignal::setPublicSignal().
    ~cPublicSignal();

    /// A number for the users of the signal; nothing is done with it here.
    cAbstractSignal::InterfaceType type() const noexcept { return meType; }
    /// The signal, not owned. Null once it is gone, if this was its public signal.
    cAbstractSignal* signal() const noexcept { return mpSignal; }

    nsa::cAbstractSerializer& operator>>(nsa::cAbstractSerializer& serializer) const;
    /// Empties the list of parameters, then replaces the description; when reading fails the rest of it
    /// stays.
    nsa::cAbstractDeserializer& operator<<(nsa::cAbstractDeserializer& deserializer);

private:
    friend class cAbstractSignal;

    cPublicSignal();

    cAbstractSignal::InterfaceType meType{};
    cAbstractSignal* mpSignal = nullptr;
    cAbstractSignal* mpLinked = nullptr; ///< the signal in whose chain this is
    cPublicSignal* mpOlder = nullptr;    ///< the neighbours in that chain
    cPublicSignal* mpNewer = nullptr;
};

} // namespace nrmi
