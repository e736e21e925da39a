#include "nel_core/io/cAbstractFsImpl.h"

#include "nel_core/std/raise.h"

namespace nio {
namespace {

[[noreturn]] void throwBindUnsupported()
{
    nstd::raiseBug(nstd::makeMessage("$MTR$Bind / unbind not supported for filesystem implementation!"));
}

} // namespace

cAbstractFsImpl::~cAbstractFsImpl() = default;

bool cAbstractFsImpl::isUsed() const
{
    return true;
}

bool cAbstractFsImpl::matches(nucs::cString&, Operation)
{
    return true;
}

void cAbstractFsImpl::bind(nstd::tAutoPtr<cAbstractFsImpl>)
{
    throwBindUnsupported();
}

void cAbstractFsImpl::unbind(nucs::cString const&)
{
    throwBindUnsupported();
}

} // namespace nio
