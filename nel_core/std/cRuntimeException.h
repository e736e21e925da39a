#pragma once

#include "nel_core/std/tExceptionLeaf.h"
#include "nel_core/ucs/cLIMessage.h"

namespace nstd {

/// A condition of the environment: a missing file, a timeout, bad input.
class NEL_EXPORT cRuntimeException : public tExceptionLeaf<cRuntimeException, cAbstractException> {
public:
    /// An empty message; the source file is "unknown", the line 0.
    cRuntimeException();
    /// Takes the message; a null `file` leaves the source position empty.
    explicit cRuntimeException(nucs::cLIMessage message, char const* file = nullptr, unsigned int line = 0);
    cRuntimeException(cRuntimeException const&) = default;
    cRuntimeException(cRuntimeException&&) = default;
    ~cRuntimeException() override;
    cRuntimeException& operator=(cRuntimeException other) noexcept;
    void swap(cRuntimeException& other) noexcept;

    /// The message, never null.
    nucs::cLIMessage const* liMessage() const override;
    /// Replaces the message.
    void setMsg(nucs::cLIMessage const& message);
    /// The message follows what the base stores.
    void store(nsa::cAbstractSerializer& serializer) const override;
    void load(nsa::cAbstractDeserializer& deserializer) override;

private:
    nucs::cLIMessage mMessage;
};

} // namespace nstd
