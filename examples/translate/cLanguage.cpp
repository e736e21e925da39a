#include "cLanguage.h"

#include <cstdio>

#include "nel_core/std/cAbstractException.h"
#include "nel_core/ucs/cLIMessage.h"
#include "show.h"

namespace {

constexpr unsigned int kPollInterval = 100; // milliseconds

void showLine(nucs::cLIMessage const& message, nucs::cLILocale const& locale)
{
    nucs::cString const text = locale.translate(message);
    std::fputs("  ", stdout);
    show(stdout, text);
    std::fputc('\n', stdout);
}

} // namespace

cLanguage::cLanguage(nucs::cString const& file, nstd::cAbstractException const& error)
    : mError(error),
      mLocale(nullptr)
{
    using tUntranslated = nrmi::localSignal2<piVoid, nucs::cLILocale const&, nucs::cLIMessage const&>;
    mLocale.loadFromFile(file);
    mLocale.sigLocaleChanged.connect(nrmi::slot(this, &cLanguage::sltLocaleChanged));
    mLocale.sigUntranslated = nstd::tAutoPtr<tUntranslated>(new tUntranslated);
    mLocale.sigUntranslated->connect(nrmi::slot(this, &cLanguage::sltUntranslated));
}

void cLanguage::show() const
{
    ::show(mLocale.name(), mError, mLocale);
}

void cLanguage::watch()
{
    mpWatch = nstd::tAutoPtr<nio::cFileWatch>(new nio::cFileWatch(mLocale.fileName()));
    mpWatch->sigFileChanged.connect(nrmi::slot(this, &cLanguage::sltFileChanged));
    mpWatch->start(kPollInterval);
}

piVoid cLanguage::sltFileChanged()
{
    ++miChanges;
    try {
        mLocale.loadFromFile(mLocale.fileName());
    } catch (nstd::cAbstractException const& error) {
        ::show(stderr, error, mLocale);
        return piVoid();
    }
    return mLocale.sigLocaleChanged();
}

piVoid cLanguage::sltLocaleChanged()
{
    show();
    return piVoid();
}

piVoid cLanguage::sltUntranslated(nucs::cLILocale const& locale, nucs::cLIMessage const& message)
{
    std::fputs("  (untranslated in \"", stdout);
    ::show(stdout, locale.name());
    std::printf("\": \"%s\")\n", message.key().c_str());
    return piVoid();
}

void show(nucs::cString const& title, nstd::cAbstractException const& error, nucs::cLILocale const& locale)
{
    show(stdout, title);
    std::fputs(":\n", stdout);
    show(stdout, error, locale);
    showLine(nucs::cLIMessage() << "$MTR$Please ask at the counter.", locale);
    showLine(nucs::cLIMessage() << "$MTR$The archive opens again at %hour% o'clock." << 9, locale);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}
