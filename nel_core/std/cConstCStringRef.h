#pragma once

#include <string_view>

#include "nel_core/export.h"
#include "nel_core/std/piAssert.h"
#include "nel_core/std/tAbstractConstArrayProxy.h"

namespace nstd {

/// Lets plain characters take part in every array operation without copying them.
///
/// The characters are not owned and must outlive the reference.
class NEL_EXPORT cConstCStringRef : public tAbstractConstArrayProxy<char> {
public:
    /// Refers to the characters before the terminating zero of `text`, which must not be null. Raises
    /// out-of-bounds for a text whose length does not fit into 32 bits.
    cConstCStringRef(char const* text);
    /// Refers to the first `length` characters of `text`, zeros included; null only without any.
    cConstCStringRef(char const* text, unsigned int length);
    /// Refers to the characters of `text`; raises out-of-bounds beyond 32 bits.
    explicit cConstCStringRef(std::string_view text);
    ~cConstCStringRef() override;

    /// Character `i`; an index that is not below the length fails an assertion.
    char const& operator[](unsigned int i) const
    {
        NEL_ASSERT(i < miLength);
        return mpCStyleStringRef[i];
    }
    unsigned int length() const { return miLength; }
    explicit operator std::string_view() const { return std::string_view(mpCStyleStringRef, miLength); }

    char const& proxyAt(unsigned int i) const override;
    unsigned int proxyLength() const override;
    /// Raises range errors ("cConstCStringRef", "copyPartTo").
    void proxyCopyPartTo(char* target, unsigned int start, unsigned int count) const override;
    /// Raises range errors ("cConstCStringRef", "provideData").
    char const* proxyProvideData(unsigned int start, unsigned int count) const override;
    /// 0: any range may be requested at once.
    unsigned int proxyPreferredBlockSize() const override;
    tAbstractConstArrayProxy<char> const& constProxyPhysical(unsigned int& offset) const override;

private:
    char const* mpCStyleStringRef; ///< not owned
    unsigned int miLength;
};

} // namespace nstd
