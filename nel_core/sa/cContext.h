#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/cContextRef.h"

namespace nsa {

/// Keeps a context open while it is written or read.
///
///     nsa::cContext context(serializer.newContext("Record"));
///     miCount >> serializer;
///     context.release();
///
/// A writer's context ends with release(), a reader's when the handle dies. Without release() the context is
/// abandoned: the writer's bytes are dropped, the reader goes back to where the context starts. Contexts nest
/// and are released in reverse order of opening.
class NEL_EXPORT cContext {
public:
    /// Takes the record out of the reference; raises when it holds none.
    cContext(cContextRef reference) : mpData(reference.unguard()) { }
    /// Copying moves the record; `other` is empty then.
    cContext(cContext& other) noexcept : mpData(other.unguard()) { }
    cContext(cContext&& other) noexcept : mpData(other.unguard()) { }
    /// Leaves both as they are.
    cContext& operator=(cContext&) { return *this; }
    ~cContext() { unset(); }

    /// Marks the context as complete; the record stays. Nothing happens on an empty handle.
    void release();
    /// Gives the record away; null when the handle is empty.
    [[nodiscard]] cAbstractContextData* unguard() noexcept;
    /// Deletes the record; the handle is empty then.
    void unset() noexcept;

private:
    cAbstractContextData* mpData; ///< owned; may be null
};

} // namespace nsa
