#include "nel_core/rmi/cAbstractSignal.h"

#include <utility>

#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/cPublicSignal.h"
#include "nel_core/rmi/cRMIExceptions.h"
#include "nel_core/std/cAsciiString.h"

namespace nrmi {

cAbstractSignal::~cAbstractSignal()
{
    while (auto* const publicSignal = mpPublicSignal) {
        unlink(*publicSignal);
        if (publicSignal->mpSignal == this)
            publicSignal->mpSignal = nullptr;
    }
}

void cAbstractSignal::swap(cAbstractSignal& other) noexcept
{
    std::swap(meInvocationBehavior, other.meInvocationBehavior);
}

cPublicSignal& cAbstractSignal::exportSignal(cConnectable& target, nstd::cAsciiString const& name,
                                             InterfaceType type, nstd::cAsciiString const& description)
{
    auto& publicSignal =
        target.registerSignal(name, returnTypeString(), parametersTypeString(), type, description, *this);
    try {
        addParameterInfo(publicSignal);
    } catch (...) {
        target.withdraw(publicSignal);
        throw;
    }
    return publicSignal;
}

void cAbstractSignal::setPublicSignal(cPublicSignal* publicSignal) noexcept
{
    mbPublic = publicSignal != nullptr;
    if (!publicSignal)
        return;
    if (publicSignal->mpLinked)
        publicSignal->mpLinked->unlink(*publicSignal);
    publicSignal->mpLinked = this;
    publicSignal->mpOlder = mpPublicSignal;
    if (mpPublicSignal)
        mpPublicSignal->mpNewer = publicSignal;
    mpPublicSignal = publicSignal;
}

nstd::cAsciiString const& cAbstractSignal::publicSignalName() const
{
    auto const* const publicSignal = isPublicSignal();
    if (!publicSignal)
        cRMIExceptions::throwSignalNotPublic();
    return publicSignal->name();
}

nstd::cAsciiString cAbstractSignal::parametersTypeString() const
{
    return nstd::cAsciiString();
}

nstd::cAsciiString cAbstractSignal::returnTypeString() const
{
    return nstd::cAsciiString();
}

void cAbstractSignal::unlink(cPublicSignal& publicSignal) noexcept
{
    auto* const older = std::exchange(publicSignal.mpOlder, nullptr);
    auto* const newer = std::exchange(publicSignal.mpNewer, nullptr);
    (newer ? newer->mpOlder : mpPublicSignal) = older;
    if (older)
        older->mpNewer = newer;
    publicSignal.mpLinked = nullptr;
}

} // namespace nrmi
