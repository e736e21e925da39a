#pragma once

#include "nel_core/export.h"
#include "nel_core/sa/fwd.h"

namespace nsa {

/// The plain record in which a context reference travels. It owns nothing itself.
struct cContextRefRef {
    cAbstractContextData* mpData;
};

/// A context on its way from the serializer that opened it to the cContext that keeps it.
///
/// The sole owner of its record; copying moves it. Moving out of an empty reference raises
/// cSAExceptions::throwContextRefNoImpl().
class NEL_EXPORT cContextRef {
public:
    /// Takes the record over; null gives an empty reference.
    explicit cContextRef(cAbstractContextData* data) noexcept : mpData(data) { }
    cContextRef(cContextRef& other) : mpData(other.unguard()) { }
    cContextRef(cContextRef&& other) : mpData(other.unguard()) { }
    cContextRef(cContextRefRef carrier) noexcept : mpData(carrier.mpData) { }
    cContextRef& operator=(cContextRef const&) = delete;
    ~cContextRef();
    operator cContextRefRef() { return cContextRefRef{unguard()}; }

    /// Gives the record away; raises when there is none.
    [[nodiscard]] cAbstractContextData* unguard();

private:
    cAbstractContextData* mpData; ///< owned; null once moved out
};

} // namespace nsa
