#include "nel_core/ucs/cLILocale.h"

#include <utility>

#include "nel_core/ucs/cLILocaleReader.h"
#include "nel_core/ucs/cLIMessage.h"

namespace nucs {
namespace {

cLIMessage messageOf(nstd::cAsciiString const& key)
{
    cLIMessage message;
    message << key;
    return message;
}

// Gives a file name back its old value at the end, or another one.
class cFileNameGuard {
public:
    explicit cFileNameGuard(cString& fileName) : mFileName(fileName), msKept(fileName) { }
    cFileNameGuard(cFileNameGuard const&) = delete;
    cFileNameGuard& operator=(cFileNameGuard const&) = delete;
    ~cFileNameGuard() { mFileName.swap(msKept); }
    void setValue(cString& value) noexcept { msKept.swap(value); }

private:
    cString& mFileName;
    cString msKept;
};

} // namespace

cLILocale::cLocaleLink::cLocaleLink(cLILocale* parent, cLILocale* owner)
    : mpParent(parent),
      mpOwner(owner) { }

cLILocale::cLocaleLink::~cLocaleLink() = default;

piVoid cLILocale::cLocaleLink::sltParentChanged()
{
    if (mpOwner)
        mpOwner->sigLocaleChanged();
    return piVoid();
}

cLILocale::cLILocale(char const* debugName) : msDebugName(debugName)
{
    sigLocaleChanged.setInvocationBehavior(nrmi::cAbstractSignal::ibIgnoreUnconnected);
}

cLILocale::~cLILocale()
{
    link(nullptr);
}

void cLILocale::swap(cLILocale& other) noexcept
{
    msDebugName.swap(other.msDebugName);
    msName.swap(other.msName);
    msFlag.swap(other.msFlag);
    moTable.swap(other.moTable);
    msFileName.swap(other.msFileName);
    mpLink.swap(other.mpLink);
    if (mpLink)
        mpLink->setOwner(this);
    if (other.mpLink)
        other.mpLink->setOwner(&other);
}

void cLILocale::clear()
{
    msName.clear();
    msFlag.clear();
    moTable.clear();
    msFileName.clear();
}

void cLILocale::link(cLILocale* parent)
{
    if (parent && (parent == this || parent->isBelow(*this)))
        return;
    nstd::tAutoPtr<cLocaleLink> made;
    if (parent) {
        made = nstd::tAutoPtr<cLocaleLink>(new cLocaleLink(parent, this));
        parent->sigLocaleChanged.connect(nrmi::slot(made.get(), &cLocaleLink::sltParentChanged));
    }
    mpLink = made;
}

bool cLILocale::isBelow(cLILocale const& locale) const noexcept
{
    auto const* above = parent();
    while (above && above != &locale)
        above = above->parent();
    return above != nullptr;
}

void cLILocale::loadFromFile(cString const& path)
{
    cString newName(path); // may be our own file name
    cFileNameGuard fileName(msFileName);
    cLILocale loaded(nullptr);
    loaded.link(parent());
    unsigned int depth = 0;
    loadFromFile(newName, loaded, depth);
    swap(loaded);
    fileName.setValue(newName);
}

void cLILocale::loadFromFile(cString const& path, cLILocale& target, unsigned int& depth)
{
    cLILocaleReader(target, msFileName, depth).read(path);
}

bool cLILocale::translate(cLIMessage const& message, cString& out, cLILocale const* origin) const
{
    auto const* asked = this;
    auto const* item = asked->moTable.hasTranslation(message.key());
    for (auto const* next = asked->parent(); !item && next; next = asked->parent()) {
        origin = asked;
        asked = next;
        item = asked->moTable.hasTranslation(message.key());
    }
    if (item) {
        message.translate(item->translation, out);
        return true;
    }
    message.untranslated(out);
    if (asked->sigUntranslated)
        (*asked->sigUntranslated)(origin ? *origin : *asked, message);
    return false;
}

bool cLILocale::translate(nstd::cAsciiString const& key, cString& out, cLILocale const* origin) const
{
    return translate(messageOf(key), out, origin);
}

cString cLILocale::translate(cLIMessage const& message) const
{
    cString text;
    translate(message, text, nullptr);
    return text;
}

cString cLILocale::translate(nstd::cAsciiString const& key) const
{
    return translate(messageOf(key));
}

} // namespace nucs
