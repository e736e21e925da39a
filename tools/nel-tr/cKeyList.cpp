#include "cKeyList.h"

#include <algorithm>

namespace {

std::string escaped(std::string_view key)
{
    std::string line;
    for (char const c : key) {
        if (c == '\n')
            line += "\\n";
        else if (c == '\r')
            line += "\\r";
        else
            line += c == '\\' ? "\\\\" : std::string(1, c);
    }
    return line;
}

std::string unescaped(std::string_view line)
{
    std::string key;
    for (std::size_t i = 0; i < line.size(); ++i) {
        bool const isEscape = line[i] == '\\' && i + 1 < line.size();
        char const c = line[isEscape ? ++i : i];
        if (isEscape && c == 'n')
            key += '\n';
        else
            key += isEscape && c == 'r' ? '\r' : c;
    }
    return key;
}

} // namespace

void cKeyList::add(std::string_view key)
{
    if (!key.empty() && maSorted.emplace(key).second)
        maKeys.emplace_back(key);
}

void cKeyList::addLines(std::string_view text)
{
    while (!text.empty()) {
        auto line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (line.substr(0, kMarker.size()) == kMarker)
            add(unescaped(line.substr(kMarker.size())));
    }
}

std::string cKeyList::text() const
{
    std::string lines;
    for (auto const& key : maKeys)
        lines += std::string(kMarker) + escaped(key) + "\n";
    return lines;
}
