#pragma once

#include "nel_core/std/tAbstractConstArrayProxy.h"

namespace nstd {

/// Read and write access to an indexed run of elements.
template<typename T>
class tAbstractArrayProxy : public tAbstractConstArrayProxy<T> {
public:
    using tAbstractConstArrayProxy<T>::proxyAt;

    /// The element at `index`, writeable.
    virtual T& proxyAt(unsigned int index) = 0;
    /// As proxyProvideData(), for writing in place. Null means that there is no direct write access.
    virtual T* proxyProvideWriteableData(unsigned int start, unsigned int count);
    /// Overwrites the `count` elements from `start` on with those at `source`.
    virtual void proxyPatchData(unsigned int start, unsigned int count, T const* source) = 0;
    /// Changes the number of elements; their values are undefined afterwards.
    virtual void proxySetSize(unsigned int size) = 0;
    /// Inserts the `count` elements at `source` in front of `position`; gives the number inserted.
    virtual unsigned int proxyInsert(unsigned int position, T const* source, unsigned int count) = 0;
    /// Opens a gap of `count` undefined elements in front of `position`; gives the number inserted.
    virtual unsigned int proxyInsertDefaultObjects(unsigned int position, unsigned int count) = 0;
    /// Removes the `count` elements from `start` on.
    virtual void proxyErase(unsigned int start, unsigned int count) = 0;
    /// As constProxyPhysical(), writeable.
    virtual tAbstractArrayProxy& proxyPhysical(unsigned int& offset) = 0;
};

template<typename T>
T* tAbstractArrayProxy<T>::proxyProvideWriteableData(unsigned int, unsigned int)
{
    return nullptr;
}

} // namespace nstd
