#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Message keys, each once, in the order in which they were found.
///
/// As text a list has a line for each key, with the marker in front. "\n", "\r" and "\\" stand for a line
/// feed, a carriage return and a backslash.
class cKeyList {
public:
    static constexpr std::string_view kMarker = "$MTR$";

    /// Adds a key without its marker; the empty one is no key.
    void add(std::string_view key);
    /// Adds the keys of a list as text; other lines are passed over.
    void addLines(std::string_view text);

    bool has(std::string_view key) const { return maSorted.find(key) != maSorted.end(); }
    std::vector<std::string> const& keys() const { return maKeys; }
    std::string text() const;

private:
    std::vector<std::string> maKeys;
    std::set<std::string, std::less<>> maSorted;
};
