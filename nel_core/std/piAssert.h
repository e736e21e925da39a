#pragma once

#include <cstddef>

#include "nel_core/std/cSTDExceptions.h"

namespace nstd {

/// The name under which a source file appears in assertions and debug entries: its path from the last
/// "nel_core/" on, without the extension. Computed at compile time from `__FILE__`.
template<std::size_t N>
struct tSourceTag {
    constexpr explicit tSourceTag(char const (&path)[N])
    {
        constexpr char kRoot[] = "nel_core/";
        constexpr std::size_t kRootLength = sizeof(kRoot) - 1;
        std::size_t begin = 0;
        for (std::size_t at = 0; at + kRootLength < N; ++at) {
            std::size_t same = 0;
            while (same < kRootLength && path[at + same] == kRoot[same])
                ++same;
            if (same == kRootLength)
                begin = at;
        }
        std::size_t end = N - 1;
        for (std::size_t at = begin; at < N - 1; ++at) {
            if (path[at] == '/')
                end = N - 1;
            else if (path[at] == '.')
                end = at;
        }
        for (std::size_t at = begin; at < end; ++at)
            mText[at - begin] = path[at];
    }

    char mText[N] = {};
};

} // namespace nstd

/// The source tag of the file in which it stands, a `char const*` that lives as long as the program.
#define NEL_SOURCE_TAG                                                                                       \
    ([]() -> char const* {                                                                                   \
        static constexpr nstd::tSourceTag<sizeof(__FILE__)> tag(__FILE__);                                   \
        return tag.mText;                                                                                    \
    }())

/// Raises a bug exception with the expression as written, the source tag and the line when it is false.
#define NEL_ASSERT(...)                                                                                      \
    ((__VA_ARGS__) ? static_cast<void>(0)                                                                    \
                   : cSTDExceptions::throwAssertionFailed(#__VA_ARGS__, NEL_SOURCE_TAG, __LINE__))

/// The same with a source name and line of the caller's choice, where they belong to the interface.
#define NEL_ASSERT_AT(expression, file, line)                                                                \
    ((expression) ? static_cast<void>(0) : cSTDExceptions::throwAssertionFailed(#expression, file, line))
