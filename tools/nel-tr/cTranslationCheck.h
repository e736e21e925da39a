#pragma once

#include <string>
#include <utility>
#include <vector>

#include "cKeyList.h"

/// What a translation file holds, and what is wrong with it.
class cTranslationCheck {
public:
    /// Reads the file with all that it includes.
    explicit cTranslationCheck(std::string const& path);

    /// Whether the file could be read; if not, the only finding says why.
    bool isRead() const { return mbRead; }
    /// Adds a finding for every key of the list without translation, and for every translation whose key is
    /// not in the list.
    void compare(cKeyList const& keys);
    /// Whether there is a translation.
    bool has(std::string_view key) const { return moKeys.has(key); }
    /// A line each: the file, then what is wrong.
    std::vector<std::string> const& findings() const { return maFindings; }

    /// The placeholders of a key or a translation, each once, sorted, with the opening percent sign.
    static std::vector<std::string> placeholders(std::string_view text);
    /// An entry for a key that is its own translation; empty for a key that a translation file cannot hold.
    static std::string stub(std::string const& key);

private:
    void load();
    void checkEntries();
    void add(std::string const& finding) { maFindings.push_back(msPath + ": " + finding); }

    std::string msPath;
    bool mbRead = false;
    std::vector<std::pair<std::string, std::string>> maEntries; ///< keys and translations, sorted by the keys
    cKeyList moKeys;
    std::vector<std::string> maFindings;
};
