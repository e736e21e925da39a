#pragma once

#include "nel_core/rmi/cSSValue.h"
#include "nel_core/std/tVector.h"

namespace nrmi {

/// What public slots and public signals tell of themselves: a name, the types as text, a text for people,
/// and the parameters and the return value one by one.
class NEL_EXPORT cPublicDescription {
public:
    cPublicDescription(cPublicDescription const&) = delete;
    cPublicDescription& operator=(cPublicDescription const&) = delete;

    /// The name under which it is published.
    nstd::cAsciiString const& name() const noexcept { return msName; }
    nstd::cAsciiString const& returnTypeName() const noexcept { return msReturnTypeName; }
    /// The type names of all parameters, separated by ", ".
    nstd::cAsciiString const& paramTypeNames() const noexcept { return msParamTypeNames; }
    nstd::cAsciiString const& description() const noexcept { return msDescription; }
    /// One entry a parameter, as far as they are known.
    nstd::tVector<cSSValue>& parameters() noexcept { return maParameters; }
    nstd::tVector<cSSValue> const& parameters() const noexcept { return maParameters; }
    cSSValue& returnValue() noexcept { return mReturnValue; }
    cSSValue const& returnValue() const noexcept { return mReturnValue; }

    /// Appends a parameter without names and returns it, to be set; it keeps its address.
    cSSValue& addParameter();
    /// Whether it is published under this name.
    bool matchName(nstd::cAsciiString const& name) const
    {
        // Most names differ in the length or the first character, which takes no call to tell.
        return msName.length() == name.length() && *msName.c_str() == *name.c_str() && msName == name;
    }

protected:
    /// No names and no parameters, to be loaded.
    cPublicDescription();
    cPublicDescription(nstd::cAsciiString const& name, nstd::cAsciiString const& returnTypeName,
                       nstd::cAsciiString const& paramTypeNames, nstd::cAsciiString const& description);
    ~cPublicDescription();
    void swap(cPublicDescription& other) noexcept;

    /// The stored form in two parts: the four texts in the order of the constructor, and the parameters
    /// followed by the return value.
    void storeTexts(nsa::cAbstractSerializer& serializer) const;
    void storeValues(nsa::cAbstractSerializer& serializer) const;
    void loadTexts(nsa::cAbstractDeserializer& deserializer);
    void loadValues(nsa::cAbstractDeserializer& deserializer);

private:
    nstd::cAsciiString msName;
    nstd::cAsciiString msReturnTypeName;
    nstd::cAsciiString msParamTypeNames;
    nstd::cAsciiString msDescription;
    nstd::tVector<cSSValue> maParameters;
    cSSValue mReturnValue;
};

} // namespace nrmi
