#pragma once

#include "nel_core/std/fwd.h"

namespace nstd {

/// Read access to an indexed run of elements, wherever they are kept: an array, a part of one, a file.
///
/// Positions and counts are elements. An implementation raises out-of-range or out-of-bounds when a request
/// leaves the run.
template<typename T>
class tAbstractConstArrayProxy {
public:
    virtual ~tAbstractConstArrayProxy() = default;

    /// The element at `index`.
    virtual T const& proxyAt(unsigned int index) const = 0;
    /// The number of elements.
    virtual unsigned int proxyLength() const = 0;
    /// Copies the `count` elements from `start` on to `target`, which has room for them.
    virtual void proxyCopyPartTo(T* target, unsigned int start, unsigned int count) const = 0;
    /// The `count` elements from `start` on as one contiguous run, valid until the next call or change.
    /// Asked for at most proxyPreferredBlockSize() elements at a time, unless that is 0.
    virtual T const* proxyProvideData(unsigned int start, unsigned int count) const = 0;
    /// The most elements that one request may ask for; 0 when all of them are contiguous anyway.
    virtual unsigned int proxyPreferredBlockSize() const = 0;
    /// The proxy that really holds the elements; `offset` becomes the position of our first one in it.
    virtual tAbstractConstArrayProxy const& constProxyPhysical(unsigned int& offset) const = 0;

protected:
    tAbstractConstArrayProxy() = default;
    tAbstractConstArrayProxy(tAbstractConstArrayProxy const&) = default;
    tAbstractConstArrayProxy& operator=(tAbstractConstArrayProxy const&) = default;
};

} // namespace nstd
