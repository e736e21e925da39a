#pragma once

#include "nel_core/std/tExceptionLeaf.h"
#include "nel_core/ucs/cLIMessage.h"

namespace nstd {

/// An error of the program: a bad index, a broken invariant, misuse.
class NEL_EXPORT cBugException : public tExceptionLeaf<cBugException, cAbstractException> {
public:
    /// An empty message; the source file is "unknown", the line 0.
    cBugException();
    /// Takes the message; a null `file` leaves the source position empty.
    explicit cBugException(nucs::cLIMessage message, char const* file = nullptr, unsigned int line = 0);
    cBugException(cBugException const&) = default;
    cBugException(cBugException&&) = default;
    ~cBugException() override;
    cBugException& operator=(cBugException other) noexcept;
    void swap(cBugException& other) noexcept;

    /// Raises a cBugException for a failed assertion. A null expression or file becomes "unknown" or "unknown
    /// file"; the position stands in the message only.
    [[noreturn]] static void throwAssertionFailed(char const* expression, char const* file,
                                                  unsigned int line);

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
