#pragma once

#include "nel_core/export.h"
#include "nel_core/std/fwd.h"
#include "nel_core/ucs/fwd.h"

/// The throw functions of Unicode text and localization. Each makes an nstd::cRuntimeException without a
/// source position, links a copy of the cause and throws it.
class NEL_EXPORT cUCSExceptions {
public:
    /// `line` counts from 0.
    [[noreturn]] static void throwUnableToParseTranslationFile(nstd::cAbstractException const& cause,
                                                               nucs::cString const& file, unsigned int line);
    /// The file cannot be read at all.
    [[noreturn]] static void throwUnableToReadTranslationFile(nstd::cAbstractException const& cause,
                                                              nucs::cString const& file);
    /// A code point has no form in the target encoding.
    [[noreturn]] static void throwUSCEncodeError(nstd::cAbstractException const& cause);
    /// Bytes that are no text in the source encoding.
    [[noreturn]] static void throwUCSDecodeError(nstd::cAbstractException const& cause);
};
