#pragma once

#include "nel_core/export.h"
#include "nel_core/rmi/cConnectable.h"
#include "nel_core/rmi/localSignal.h"
#include "nel_core/std/cAsciiString.h"
#include "nel_core/std/piTypes.h"
#include "nel_core/std/tAutoPtr.h"
#include "nel_core/ucs/cLITrTable.h"
#include "nel_core/ucs/cString.h"
#include "nel_core/ucs/fwd.h"

namespace nucs {

/// Turns messages into text of a language.
///
/// A locale looks messages up in its translation table and, when it is linked to a parent, asks that for what
/// it has no translation of. A parent must outlive the locales linked to it. The table is filled by hand or
/// from locale files, which hold statements like these:
///
///     // what stands behind two slashes is a comment
///     Name = "Deutsch"
///     Flag = "de.png"
///     include "common.tr"
///     "Unable to read %file%!" = "%file% ist nicht lesbar!"
///     "The long story" = fromFile("story.txt")
///
/// Inside of the quotes a backslash makes the next character an ordinary one; keys become ASCII, with "?" for
/// every other character. "include" and "fromFile" look for their files in the directory of the file in which
/// they stand. Whatever else stands between the statements is passed over. Not synchronised: no other thread
/// may translate while a locale is changed.
class NEL_EXPORT cLILocale {
public:
    /// A child's end of the link to its parent: passes the parent's sigLocaleChanged on to the child's.
    class NEL_EXPORT cLocaleLink : public nrmi::cConnectable {
    public:
        cLocaleLink(cLILocale* parent, cLILocale* owner);
        ~cLocaleLink() override;

        cLILocale* parent() const noexcept { return mpParent; }
        cLILocale* owner() const noexcept { return mpOwner; }
        /// Sets the child.
        void setOwner(cLILocale* owner) noexcept { mpOwner = owner; }

        piVoid sltParentChanged();

    private:
        cLILocale* mpParent; ///< not owned
        cLILocale* mpOwner;  ///< not owned
    };

    /// An empty locale. A null name is an empty one.
    explicit cLILocale(char const* debugName);
    /// Ends the link to the parent.
    virtual ~cLILocale();
    cLILocale(cLILocale const&) = delete;
    cLILocale& operator=(cLILocale const&) = delete;
    /// Exchanges everything but the signals: those who are connected, and the locales linked to one of the
    /// two, stay where they are. Neither may be linked to the other, directly or not: the links would form a
    /// ring.
    void swap(cLILocale& other) noexcept;

    /// Empties the name, the flag, the file name and the table.
    void clear();
    /// Makes `parent` the locale that is asked for what this one cannot translate; null ends the link. Does
    /// nothing when `parent` is this locale or linked to it, directly or not.
    void link(cLILocale* parent);
    /// Replaces name, flag, file name and table by what the file holds; the debug name becomes empty. Raises
    /// cUCSExceptions::throwUnableToReadTranslationFile() or throwUnableToParseTranslationFile() with the
    /// line counted from 0, and nothing has changed then. Only regular files are read, at most 1,000 of them,
    /// and includes may be nested 9 deep: otherwise "Maximum include depth exceeded!" is raised, or is the
    /// cause.
    void loadFromFile(cString const& path);
    /// Adds what the file holds to `target`, and makes `path` the file name of this locale. Counts in `depth`
    /// while it reads; beyond 10 it raises. What was read before a failure stays.
    void loadFromFile(cString const& path, cLILocale& target, unsigned int& depth);

    /// Replaces `out` by the translation of the message, or, with the result false, by its own text. In that
    /// case the last locale that was asked emits its sigUntranslated, if it has one, and raises what the
    /// slots raise; without slots that signal raises nrmi::cUnconnectedSignalException, unless it is told to
    /// ignore that. The signal names the locale linked to the last one, or, if there is none, `origin`, or,
    /// if that is null, the last one itself.
    bool translate(cLIMessage const& message, cString& out, cLILocale const* origin) const;
    /// As a message that the key has been streamed into.
    bool translate(nstd::cAsciiString const& key, cString& out, cLILocale const* origin) const;
    /// The text itself, without origin.
    cString translate(cLIMessage const& message) const;
    cString translate(nstd::cAsciiString const& key) const;

    /// The name of the language, for people.
    cString const& name() const noexcept { return msName; }
    nstd::cAsciiString const& debugName() const noexcept { return msDebugName; }
    void setDebugName(nstd::cAsciiString const& name) { msDebugName = name; }
    /// What the locale file calls its flag, with the path of that file, taken as a directory, in front.
    cString const& flag() const noexcept { return msFlag; }
    /// The file that was loaded last.
    cString const& fileName() const noexcept { return msFileName; }
    cLITrTable& translator() noexcept { return moTable; }

    /// For the user to emit when texts have to be shown anew; passed on to the locales linked to this one.
    nrmi::localSignal0<piVoid> sigLocaleChanged;

private:
    friend class cLILocaleReader;

    bool isBelow(cLILocale const& locale) const noexcept;
    cLILocale* parent() const noexcept { return mpLink ? mpLink->parent() : nullptr; }

    nstd::cAsciiString msDebugName;
    cString msName;
    cString msFlag;
    cLITrTable moTable;
    cString msFileName;
    nstd::tAutoPtr<cLocaleLink> mpLink; ///< null without a parent

public:
    /// For the user; the library does not emit it. Null unless installed.
    nstd::tAutoPtr<nrmi::localSignal2<piVoid, cLIMessage const&, cString&>> sigTranslate;
    /// Told of every message that no locale of the chain translates, with the locale that translate() names.
    /// Null unless installed. A slot at the system's locale must not write the message itself to an output:
    /// that would have it translated, and reported, without end. Its key or untranslated() text can be
    /// written.
    nstd::tAutoPtr<nrmi::localSignal2<piVoid, cLILocale const&, cLIMessage const&>> sigUntranslated;
};

} // namespace nucs
