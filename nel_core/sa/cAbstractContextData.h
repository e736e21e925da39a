#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"

namespace nsa {

/// What a serializer or deserializer remembers of one open context; cContext holds it.
class NEL_EXPORT cAbstractContextData {
public:
    cAbstractContextData() = default;
    cAbstractContextData(cAbstractContextData const&) = delete;
    cAbstractContextData& operator=(cAbstractContextData const&) = delete;
    /// Leaves the context; one that was not released is abandoned.
    virtual ~cAbstractContextData();

    /// Marks the context as complete.
    virtual void release() = 0;
};

} // namespace nsa
