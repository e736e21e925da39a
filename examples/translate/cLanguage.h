#pragma once

#include "nel_core/io/cFileWatch.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/std/fwd.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/cLILocale.h"

/// A language from a locale file, in which an error and what the program says about it are shown.
class cLanguage : public nrmi::cConnectable {
public:
    /// Loads the file. The error must outlive the language.
    cLanguage(nucs::cString const& file, nstd::cAbstractException const& error);
    /// `parent` is asked for what this language does not say in its own way; it must outlive it.
    void link(cLanguage& parent) { mLocale.link(&parent.mLocale); }

    void show() const;
    /// From now on the main loop loads the file when it changes, and shows what is new here and in the
    /// languages linked to this one. A file that cannot be loaded is reported and changes nothing.
    void watch();
    /// How often the file has changed since watch().
    unsigned int changes() const { return miChanges; }

    piVoid sltFileChanged();
    piVoid sltLocaleChanged();
    piVoid sltUntranslated(nucs::cLILocale const& locale, nucs::cLIMessage const& message);

private:
    nstd::cAbstractException const& mError;
    nucs::cLILocale mLocale;
    nstd::tAutoPtr<nio::cFileWatch> mpWatch; ///< null unless the file is watched
    unsigned int miChanges = 0;
};

/// Shows the error and what the program says about it in the language of the locale.
void show(nucs::cString const& title, nstd::cAbstractException const& error, nucs::cLILocale const& locale);
